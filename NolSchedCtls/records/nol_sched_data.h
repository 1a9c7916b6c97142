// The record of one schedule entry: which study group runs, when, and with which overrides.
//
// Call order: InitNew or InitEdit, then LoadData, IsTabValid and SaveData of the tabs, then SaveNolOverrides.
// The host stores the entry's own row from the properties; the record stores the override rows alone.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "NolSchedCtls/base/collection.h"
#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/records/nol_override.h"
#include "NolSchedCtls/services/caddis.h"
#include "NolSchedCtls/services/lintel.h"

namespace NolSchedCtls::inline v1 {

// For an argument whose value comes later.
struct GivenLater {};

// What converts without loss; a date may be any number. A null pointer is no text.
template <class Value, class T>
concept Gives = std::convertible_to<Value, T> &&
                (std::floating_point<T> || requires(Value value) { T{std::move(value)}; }) &&
                !(std::is_null_pointer_v<Value> && std::same_as<T, std::string>);

// An argument that must be given: a call that leaves it out, or gives what does not fit, does not compile.
template <class T>
struct Given {
    Given(GivenLater /*value*/) : value() {}
    template <class Value>
    requires Gives<Value, T> Given(Value valueA) : value(std::move(valueA)) {}

    T value;
};

// A stored entry's columns, in their order; each fills the property of its name. None may be left out; who
// fills them by the table of the columns begins with LaterArguments (records/entry_columns.h).
struct InitEditArguments {
    Given<std::shared_ptr<const CaddisScenarioType>> ScenarioTypeA;
    Given<std::string> sEditorNameA;
    Given<std::int32_t> nIdA;
    Given<DateTime> dFirstDateTimeA;
    Given<DateTime> dFinalDateTimeA;
    Given<std::int32_t> nWhichMonthDateA;
    Given<std::int32_t> nWhichWeekA;
    Given<std::int32_t> nWhichWeekdayA;
    Given<std::string> sPeriodicityA;
    Given<std::int32_t> nFrequencyA;
    Given<std::string> sScheduleActiveA;
    Given<std::string> sIncludeMondaysA;
    Given<std::string> sIncludeTuesdaysA;
    Given<std::string> sIncludeWednesdaysA;
    Given<std::string> sIncludeThursdaysA;
    Given<std::string> sIncludeFridaysA;
    Given<std::string> sIncludeSaturdaysA;
    Given<std::string> sIncludeSundaysA;
    Given<std::string> sIncludeHolidaysA;
    Given<std::string> sIncludeDayAfterHolA;
    Given<std::int32_t> nClientMachineIdA;
    Given<std::int32_t> nRptGrpIdA;
    Given<std::string> sRunModeA;
    Given<std::string> sRetrieveModeA;
    Given<std::string> sAutoPurgeA;
    Given<std::int32_t> nPurgeIntervalA;
    Given<std::string> sSubFolderNameA;
    Given<std::string> sCreateFilesA;
};

// Properties check nothing: a range belongs to the tab or control that edits the value. Yes and no are "Y"
// and "N", and only exactly "Y" counts as yes. What is the host's own no tab reads or writes. One thread at a
// time; shared by all tabs and their host.
class NOLSCHED_API CNolSchedData {
  public:
    using OverrideCollection = KeyedCollection<std::shared_ptr<CNolOverride>>;

    CNolSchedData() = default;
    CNolSchedData(const CNolSchedData&) = delete;
    CNolSchedData& operator=(const CNolSchedData&) = delete;

    std::int32_t Id = 0;
    DateTime FirstDateTime = 0;  // the first run's date, and the time of day of all runs
    DateTime FinalDateTime = 0;  // on the day MAppConstants::NoEndDate: no end
    DateTime NextRunDate =
        0;  // the host's own, as LastRunDate, ScheduleActive, ClientMachineId, SubFolderName
    std::int32_t WhichMonthDate = 0;  // code "M": 1 to 28, 0 for the last day
    std::int32_t WhichWeek = 0;       // code "A": 1 to 4, 0 for the last
    std::int32_t WhichWeekday = 0;    // codes "W" and "A": 1 "Sunday" to 7 "Saturday"
    std::string Periodicity;          // "O", "H", "D", "W", "M" or "A"
    std::int32_t Frequency = 0;       // every how many units of the code
    std::string ScheduleActive;
    std::string IncludeMondays;
    std::string IncludeTuesdays;
    std::string IncludeWednesdays;
    std::string IncludeThursdays;
    std::string IncludeFridays;
    std::string IncludeSaturdays;
    std::string IncludeSundays;
    std::string IncludeHolidays;
    std::string IncludeDayAfterHol;
    std::int32_t ClientMachineId = 0;
    std::int32_t RptGrpId = 0;       // Id of the study group
    std::string RunMode;             // "S" scheduled, "I" immediate
    std::string RetrieveMode;        // download: "A" automatic, "M" manual
    std::string AutoPurge;           // "Y" purges after PurgeInterval, "N" never
    std::int32_t PurgeInterval = 0;  // days
    std::string SubFolderName;
    std::string CreateFiles;
    DateTime LastRunDate = 0;
    std::string EditorName;
    bool IsNew = false;
    // Whether a study kind's override is on; a row is stored only for an override whose flag is "Y".
    std::string HomOvr;
    std::string PlmOvr;
    std::string RfcOvr;
    std::string VcsOvr;

    // Fills the record with a new entry's values. Throws what CodeTables or the clock throw, and
    // NolSchedError for a default that is no number; the steps before stay in force.
    void InitNew(std::shared_ptr<const CaddisScenarioType> ScenarioTypeA, bool fIsImmediate,
                 std::int32_t nRptGrpIdA, std::string sNameA);
    // Fills the record from a stored entry's columns and reads its override rows. Once for each record: a
    // second call throws DuplicateKeyError where there are rows. On a failure the columns stay copied and
    // IsNew as it was.
    void InitEdit(InitEditArguments arguments);

    bool IsOverride() const { return RunMode == "I"; }  // an immediate entry
    // For the host's row. An immediate entry's first date-time is Lintel's moment, not FirstDateTime.
    LintelDateTime DBFirstDateTime() const;
    LintelDateTime DBFinalDateTime() const;

    // In order of addition; owned by the record, the objects shared with whoever added them.
    OverrideCollection& Overrides() { return overrides; }
    ReadOnlyCollection<CNolOverride> Overrides() const { return ReadOnlyCollection(overrides); }
    // Under a study kind's exact name the kind's flag becomes "Y". Throws DuplicateKeyError if the key is
    // present (in any letter case) and NolSchedError for nothing; no flag changes then.
    void AddNolOverride(std::shared_ptr<CNolOverride> CData, std::string Key);
    std::shared_ptr<CNolOverride> GetOverride(std::string_view sOverride);  // nothing if it is absent
    std::shared_ptr<const CNolOverride> GetOverride(std::string_view sOverride) const;
    void RemoveNolOverride(std::string_view Key);  // the flag stays

    // Replaces the override rows of Id by those that are on; a new entry (IsNew) has none to delete. Throws
    // if the delete fails. A failing insert is told through LintelFailureReport alone and the next is tried:
    // a host wraps this in a transaction and watches the reports. Leaves IsNew to the host.
    CNolSchedData& SaveNolOverrides();

  private:
    OverrideCollection overrides;
    std::shared_ptr<const CaddisScenarioType> ScenarioType = std::make_shared<CaddisScenarioType>();
};

}  // namespace NolSchedCtls::inline v1
