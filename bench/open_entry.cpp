#include "bench/open_entry.h"

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/library/catalogue.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "NolSchedCtls/services/memory_services.h"

namespace NolSchedCtls::Bench {

namespace {

MemoryStore::Row RowOf(const StudyKind& kind) {
    constexpr std::int64_t any = 60;
    return {{"NOL_OverrideId", std::int64_t{1}},
            {"Type", std::string(kind.sKey)},
            {"ScenarioId", any},
            {"Duration", any},
            {"Polling_Interval", any},
            {"Retrieve_Delay", any},
            {"ClearLog", std::string()}};
}

}  // namespace

void UseMemory() {
    const auto store = InstallMemoryServices();
    store->now = 46083.375;  // 2026-03-02 09:00
    store->documents = {{1, "North Cells", {"NOL Group"}}, {60, "Baseline", {"Scenario"}}};
    for (const StudyKind& kind : studyKinds) store->tables["NOL_Override"].push_back(RowOf(kind));
}

std::shared_ptr<CNolSchedData> StoredRecord() {
    auto record = std::make_shared<CNolSchedData>();
    record->InitEdit({.ScenarioTypeA = std::make_shared<CaddisScenarioType>(),
                      .sEditorNameA = "Nightly",
                      .nIdA = 1,
                      .dFirstDateTimeA = 46083.375,
                      .dFinalDateTimeA = MAppConstants::NoEndDate,
                      .nWhichMonthDateA = 0,
                      .nWhichWeekA = 0,
                      .nWhichWeekdayA = 2,
                      .sPeriodicityA = "W",
                      .nFrequencyA = 2,
                      .sScheduleActiveA = "Y",
                      .sIncludeMondaysA = "Y",
                      .sIncludeTuesdaysA = "Y",
                      .sIncludeWednesdaysA = "Y",
                      .sIncludeThursdaysA = "Y",
                      .sIncludeFridaysA = "Y",
                      .sIncludeSaturdaysA = "Y",
                      .sIncludeSundaysA = "Y",
                      .sIncludeHolidaysA = "Y",
                      .sIncludeDayAfterHolA = "Y",
                      .nClientMachineIdA = 0,
                      .nRptGrpIdA = 1,
                      .sRunModeA = "S",
                      .sRetrieveModeA = "A",
                      .sAutoPurgeA = "Y",
                      .nPurgeIntervalA = 30,
                      .sSubFolderNameA = "",
                      .sCreateFilesA = "N"});
    return record;
}

OpenEntry::OpenEntry() {
    for (const auto& published : PublishedClasses())
        if (published.kind == ClassKind::Control) tabs.push_back(CreateControl(published.sProgId));
    for (const auto& tab : tabs) tab->LoadData(record, record->EditorName, notifier);
}

}  // namespace NolSchedCtls::Bench
