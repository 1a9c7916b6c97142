#include "NolSchedCtls/library/catalogue.h"

#include <array>
#include <type_traits>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"

namespace NolSchedCtls::inline v1 {

namespace {

using Names = std::span<const std::string_view>;

// clang-format off
constexpr std::string_view schedDataMembers[] = {
    "AddNolOverride", "AutoPurge", "ClientMachineId", "CreateFiles", "DBFinalDateTime", "DBFirstDateTime",
    "EditorName", "FinalDateTime", "FirstDateTime", "Frequency", "GetOverride", "Overrides", "HomOvr", "Id",
    "IncludeDayAfterHol", "IncludeFridays", "IncludeHolidays", "IncludeMondays", "IncludeSaturdays",
    "IncludeSundays", "IncludeThursdays", "IncludeTuesdays", "IncludeWednesdays", "InitEdit", "InitNew",
    "IsNew", "IsOverride", "LastRunDate", "NextRunDate", "Periodicity", "PlmOvr", "PurgeInterval",
    "RemoveNolOverride", "RetrieveMode", "RfcOvr", "RptGrpId", "RunMode", "SaveNolOverrides",
    "ScheduleActive", "SubFolderName", "VcsOvr", "WhichMonthDate", "WhichWeek", "WhichWeekday"};
// clang-format on

constexpr std::string_view overrideMembers[] = {"ClearLog",       "Duration",      "Initialize",
                                                "OverrideType",   "ScenarioId",    "Polling_Interval",
                                                "Retrieve_Delay", "NOL_OverrideId"};

constexpr std::string_view scheduleMembers[] = {"EnableExcludeCtls", "InitControls",   "SetCtlsDaily",
                                                "SetCtlsHourly",     "SetCtlsMonthly", "SetCtlsOnce",
                                                "SetCtlsWeekly"};

constexpr std::string_view generalOutside[] = {"XMarlet", "XAmbitPurge", "XAmbitDownload"};
constexpr std::string_view scheduleOutside[] = {"SSDateCombo", "SSDateCombo", "DTPicker"};
constexpr std::string_view scenarioOutside[] = {"XMarlet"};

template <class Class, class Base = Class>
PublishedObject Create() {
    return std::shared_ptr<Base>(std::make_shared<Class>());
}

struct DesignSize {
    int nWidth;
    int nHeight;
};

template <class Class>
constexpr PublishedClass Data(std::string_view sName, std::string_view sInterface, Names members) {
    return {sName, ClassKind::DataClass, sInterface, {}, {}, {}, 0, 0, {}, members, Create<Class>};
}

// The program identifier holds the class's name, and its interfaces' names are made of it.
template <class Class>
constexpr PublishedClass Control(std::string_view sProgId, std::string_view sEventInterface, DesignSize size,
                                 Names outside, Names members = {}) {
    return {sEventInterface.substr(2),
            ClassKind::Control,
            sEventInterface.substr(1),
            sEventInterface,
            "IPaviseControl",
            sProgId,
            size.nWidth,
            size.nHeight,
            outside,
            members,
            Create<Class, PaviseTab>};
}

constexpr std::array publishedClasses = {
    Data<CNolSchedData>("CNolSchedData", "_CNolSchedData", schedDataMembers),
    Data<CNolOverride>("CNolOverride", "_CNolOverride", overrideMembers),
    Control<XNolSchedGenTab>("NolSchedCtls.XNolSchedGenTab", "__XNolSchedGenTab", {6225, 5070},
                             generalOutside),
    Control<XNolScheduleTab>("NolSchedCtls.XNolScheduleTab", "__XNolScheduleTab", {6285, 5415},
                             scheduleOutside, scheduleMembers),
    Control<XNolSchedHomOvr>("NolSchedCtls.XNolSchedHomOvr", "__XNolSchedHomOvr", {6375, 2760},
                             scenarioOutside),
    Control<XNolSchedPlmOvr>("NolSchedCtls.XNolSchedPlmOvr", "__XNolSchedPlmOvr", {6870, 4305},
                             scenarioOutside),
    Control<XNolSchedRfcOvr>("NolSchedCtls.XNolSchedRfcOvr", "__XNolSchedRfcOvr", {6585, 3135}, {}),
    Control<XNolSchedVcsOvr>("NolSchedCtls.XNolSchedVcsOvr", "__XNolSchedVcsOvr", {6510, 2985}, {}),
};

constexpr VersionBlock versionBlock = {"NolSchedCtls", NOLSCHED_VERSION, "OLESelfRegister"};

// The namespace bears the project's major version, as the symbols and the file of the shared library do.
static_assert(std::is_same_v<VersionBlock, NolSchedCtls::NOLSCHED_NAMESPACE::VersionBlock>);

}  // namespace

std::span<const PublishedClass> PublishedClasses() { return publishedClasses; }

const PublishedClass* FindPublishedClass(std::string_view sName) {
    for (const auto& published : publishedClasses)
        if (published.sName == sName || (!published.sProgId.empty() && published.sProgId == sName))
            return &published;
    return nullptr;
}

std::shared_ptr<PaviseTab> CreateControl(std::string_view sProgId) {
    const PublishedClass* const published = FindPublishedClass(sProgId);
    if (published == nullptr || published->sProgId != sProgId)
        throw NolSchedError("There is no control " + Quoted(sProgId) + ".");
    return std::get<std::shared_ptr<PaviseTab>>(published->create());
}

const VersionBlock& LibraryVersion() { return versionBlock; }

}  // namespace NolSchedCtls::inline v1
