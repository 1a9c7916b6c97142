#include "bench/memory_services.h"

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/library/catalogue.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::Bench {

namespace {

class OverrideRows : public ILintelRows {
  public:
    bool AtEnd() const override { return row == studyKinds.size(); }
    void MoveNext() override { ++row; }
    LintelField Fields(std::string_view sColumn) const override {
        const std::string name(sColumn);
        if (name == "Type") return {name, std::string(studyKinds[row].sKey)};
        if (name == "ClearLog") return {name, std::string()};
        return {name, std::int64_t{60}};
    }

  private:
    std::size_t row = 0;
};

struct MemoryLintel : ILintelDb {
    void ExecuteStatement(std::string_view /*sStatement*/) override {}
    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& /*arguments*/) override {
        return std::make_unique<OverrideRows>();
    }
    std::string JoinValues(const std::vector<LintelValue>& /*values*/) const override { return {}; }
    LintelDateTime ImmediateDateTime() const override { return {Clock().Now(), true}; }
};

struct MemoryCaddis : ICaddisStore {
    std::shared_ptr<const CaddisDocument> FindDocument(const CaddisDocumentType& type,
                                                       std::int32_t nId) override {
        return std::make_shared<CaddisDocument>(CaddisDocument{nId, "North Cells", type});
    }
    std::vector<std::shared_ptr<const CaddisDocument>> DocumentsOfType(
        const CaddisDocumentType& type) override {
        return {FindDocument(type, 1)};
    }
    CaddisUser CurrentUser() override { return {}; }
};

struct NoMessages : IMessageService {
    void Show(std::string_view /*sText*/, int /*nFlags*/, std::string_view /*sTitle*/, int /*nHelpFile*/,
              int /*nHelpContext*/) override {}
};

struct NoReport : ILintelFailureReport {
    void ReportFailure(std::string_view /*sText*/) override {}
};

struct StandingClock : IClock {
    DateTime Now() override { return 46083.375; }  // 2026-03-02 09:00
};

struct MemoryProvider : ServiceProvider {
    std::unique_ptr<ILintelDb> CreateLintelDb() override { return std::make_unique<MemoryLintel>(); }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override {
        return std::make_unique<NoReport>();
    }
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override { return std::make_unique<MemoryCaddis>(); }
    std::unique_ptr<IMessageService> CreateMessageService() override {
        return std::make_unique<NoMessages>();
    }
    std::unique_ptr<IClock> CreateClock() override { return std::make_unique<StandingClock>(); }
};

}  // namespace

void InstallMemoryServices() {
    InstallServices([] { return std::make_unique<MemoryProvider>(); });
}

std::shared_ptr<CNolSchedData> StoredRecord() {
    auto record = std::make_shared<CNolSchedData>();
    record->InitEdit({.ScenarioTypeA = std::make_shared<CaddisScenarioType>(),
                      .sEditorNameA = "Nightly",
                      .nIdA = 1,
                      .dFirstDateTimeA = 46083.375,
                      .dFinalDateTimeA = MAppConstants::NoEndDate,
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
