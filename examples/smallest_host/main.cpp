// The smallest host: services of its own, one record, six tabs, one edit, one save.
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>

#include "NolSchedCtls/library/catalogue.h"
#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/text_box.h"

using namespace NolSchedCtls;

namespace {

// [services] What a host has to provide: statements, documents, messages, reports of failures.
struct NoRows : ILintelRows {
    bool AtEnd() const override { return true; }
    void MoveNext() override {}
    LintelField Fields(std::string_view) const override { return {}; }
};

struct PrintedLintel : ILintelDb {
    void ExecuteStatement(std::string_view statement) override { std::cout << statement << '\n'; }
    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments&) override {
        return std::make_unique<NoRows>();
    }
    std::string JoinValues(const std::vector<LintelValue>& values) const override {
        std::ostringstream joined;
        for (const auto& value : values) {
            joined << (joined.tellp() > 0 ? ", " : "");
            if (const auto* text = std::get_if<std::string>(&value))
                joined << std::quoted(*text, '\'', '\'');  // a quote in a text is doubled
            else if (const auto* number = std::get_if<std::int64_t>(&value))
                joined << *number;
            else
                joined << "NULL";
        }
        return joined.str();
    }
    LintelDateTime ImmediateDateTime() const override { return {Clock().Now(), true}; }
};

struct OneGroup : ICaddisStore {
    std::shared_ptr<const CaddisDocument> group =
        std::make_shared<CaddisDocument>(CaddisDocument{7, "North Cells", {"NOL Group"}});

    std::shared_ptr<const CaddisDocument> FindDocument(const CaddisDocumentType& type,
                                                       std::int32_t id) override {
        return type == group->DocumentType && id == group->Id ? group : nullptr;
    }
    std::vector<std::shared_ptr<const CaddisDocument>> DocumentsOfType(const CaddisDocumentType&) override {
        return {group};
    }
    CaddisUser CurrentUser() override { return {}; }
};

struct PrintedMessages : IMessageService {
    void Show(std::string_view text, int, std::string_view title, int, int) override {
        std::cout << title << ": " << text << '\n';
    }
};

struct PrintedFailure : ILintelFailureReport {
    void ReportFailure(std::string_view) override { std::cout << "an override was not stored\n"; }
};

struct Provider : ServiceProvider {
    std::unique_ptr<ILintelDb> CreateLintelDb() override { return std::make_unique<PrintedLintel>(); }
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override { return std::make_unique<OneGroup>(); }
    std::unique_ptr<IMessageService> CreateMessageService() override {
        return std::make_unique<PrintedMessages>();
    }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override {
        return std::make_unique<PrintedFailure>();
    }
};
// [services]

}  // namespace

int main() {
    // [edit] A record, its notifier and the tabs; then what a user does, and what the host does at a save.
    InstallServices([] { return std::make_unique<Provider>(); });
    const auto record = std::make_shared<CNolSchedData>();
    record->InitNew(std::make_shared<CaddisScenarioType>(), false, 7, "Nightly");

    std::map<std::string_view, std::shared_ptr<PaviseTab>> tabs;
    const auto notifier = std::make_shared<CPaviseNotify>();
    for (const auto& published : PublishedClasses())
        if (published.kind == ClassKind::Control) tabs[published.sName] = CreateControl(published.sProgId);
    for (const auto& [name, tab] : tabs) tab->LoadData(record, "", notifier);
    int changes = 0;
    notifier->Changed.Connect([&changes] { ++changes; });

    tabs["XNolSchedGenTab"]->Field<CheckBox>("chkPlm").Click();
    auto& delay = tabs["XNolSchedPlmOvr"]->Field<TextBox>("txtRetrieveDelay");
    delay.Paste("11");
    const bool isRefused = !tabs["XNolSchedPlmOvr"]->IsTabValid("Nightly");
    delay.Paste("10");
    std::cout << (isRefused ? "refused once, " : "") << changes << " changes\n";

    for (const auto& [name, tab] : tabs)
        if (!tab->IsTabValid("Nightly")) return 1;
    for (const auto& [name, tab] : tabs) tab->SaveData();
    record->Id = 1;  // the host stores the entry's own row, and numbers it
    record->SaveNolOverrides();
    // [edit]
    InstallServices({});
}
