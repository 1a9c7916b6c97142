#include "NolSchedCtls/records/nol_sched_data.h"

#include <utility>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/records/sql.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::int32_t OptionNumber(const CodeOptionSet& options, std::string_view name) {
    const std::string& text = options.Item(name).Value;
    if (const auto number = ParseWhole(text)) return *number;
    throw NolSchedError("The option " + Quoted(name) + " of a new entry is " + Quoted(text) +
                        ", which is no 32-bit number.");
}

}  // namespace

void CNolSchedData::InitNew(std::shared_ptr<const CaddisScenarioType> ScenarioTypeA, bool fIsImmediate,
                            std::int32_t nRptGrpIdA, std::string sNameA) {
    RunMode = fIsImmediate ? "I" : "S";
    const CodeOptionSet& options =
        fIsImmediate ? CodeTables().ImmediateDefaults() : CodeTables().ScheduledDefaults();
    ScenarioType = std::move(ScenarioTypeA);
    EditorName = std::move(sNameA);
    RetrieveMode = options.Item("Download").Value;
    AutoPurge = options.Item("Purge").Value;
    PurgeInterval = OptionNumber(options, "Days");
    ScheduleActive = "Y";
    RptGrpId = nRptGrpIdA;
    SubFolderName.clear();
    FirstDateTime = DateOf(Clock().Now());
    FinalDateTime = MAppConstants::NoEndDate;
    WhichMonthDate = 0;
    WhichWeek = 1;
    WhichWeekday = 1;
    Periodicity = "O";
    Frequency = 1;
    IncludeMondays = IncludeTuesdays = IncludeWednesdays = IncludeThursdays = IncludeFridays = "Y";
    IncludeSaturdays = IncludeSundays = IncludeHolidays = IncludeDayAfterHol = "Y";
    CreateFiles = "N";
    IsNew = true;
}

void CNolSchedData::InitEdit(InitEditArguments arguments) {
    ScenarioType = std::move(arguments.ScenarioTypeA.value);
    const auto take = [&](const auto& column) {
        if (column.pArgument != nullptr)
            this->*column.pProperty = std::move((arguments.*column.pArgument).value);
    };
    for (const auto& column : entryColumns) std::visit(take, column);
    MSQL::LoadNolOverrides(*this);  // selects by Id, so after the columns
    IsNew = false;
}

LintelDateTime CNolSchedData::DBFirstDateTime() const {
    return IsOverride() ? LintelDb().ImmediateDateTime() : LintelDb().DateTimeOf(FirstDateTime);
}

LintelDateTime CNolSchedData::DBFinalDateTime() const { return LintelDb().DateTimeOf(FinalDateTime); }

void CNolSchedData::AddNolOverride(std::shared_ptr<CNolOverride> CData, std::string Key) {
    if (!CData) throw NolSchedError("There is no override to add under the key " + Quoted(Key) + ".");
    const StudyKind* kind = FindStudyKind(Key);
    overrides.Add(std::move(CData), std::move(Key));
    if (kind != nullptr) this->*kind->pFlag = "Y";
}

std::shared_ptr<CNolOverride> CNolSchedData::GetOverride(std::string_view sOverride) {
    const auto* found = overrides.Find(sOverride);
    return found == nullptr ? nullptr : *found;
}

std::shared_ptr<const CNolOverride> CNolSchedData::GetOverride(std::string_view sOverride) const {
    return const_cast<CNolSchedData*>(this)->GetOverride(sOverride);
}

void CNolSchedData::RemoveNolOverride(std::string_view Key) {
    if (overrides.Find(Key) != nullptr) overrides.Remove(Key);
}

CNolSchedData& CNolSchedData::SaveNolOverrides() {
    if (!IsNew) MSQL::DeleteNolOverrides(Id);
    const OverrideCollection saved = overrides;  // a failure's report may change them
    for (const auto& [key, item] : saved) {
        const StudyKind* kind = FindStudyKind(item->OverrideType);
        if (kind != nullptr && this->*kind->pFlag == "Y") MSQL::InsertNolOverride(*item, Id);
    }
    return *this;
}

}  // namespace NolSchedCtls::inline v1
