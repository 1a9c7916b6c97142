// The smallest host: services in memory with one of its own, one record, six tabs, one edit, one save.
#include <iostream>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/services/memory_services.h"
#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"

using namespace NolSchedCtls;

namespace {

// [services] Boxes go to the terminal; everything else still lives in memory.
struct PrintedMessages : IMessageService {
    void Show(std::string_view text, int, std::string_view title, int, int) override {
        std::cout << title << ": " << text << '\n';
    }
};

struct Provider : MemoryProvider {
    using MemoryProvider::MemoryProvider;
    std::unique_ptr<IMessageService> CreateMessageService() override {
        return std::make_unique<PrintedMessages>();
    }
};
// [services]

}  // namespace

int main() {
    // [edit] A record, its notifier and the tabs; then what a user does, and what the host does at a save.
    const auto memory = std::make_shared<MemoryStore>();
    memory->documents = {{7, "North Cells", {"NOL Group"}}};
    InstallServices([memory] { return std::make_unique<Provider>(memory); });

    const auto record = std::make_shared<CNolSchedData>();
    record->InitNew(std::make_shared<CaddisScenarioType>(), false, 7, "Nightly");
    const auto notifier = std::make_shared<CPaviseNotify>();
    XNolSchedGenTab general;
    XNolScheduleTab schedule;
    XNolSchedHomOvr hom;
    XNolSchedPlmOvr plm;
    XNolSchedRfcOvr rfc;
    XNolSchedVcsOvr vcs;
    PaviseTab* const tabs[] = {&general, &schedule, &hom, &plm, &rfc, &vcs};
    for (PaviseTab* const tab : tabs) tab->LoadData(record, "", notifier);
    int changes = 0;
    notifier->Changed.Connect([&changes] { ++changes; });

    // [idea] A box of one tab switches another on, through the notifier; a tab says itself what it refuses.
    general.chkPlm.Click();
    plm.txtRetrieveDelay.Paste("11");
    const bool isRefused = !plm.IsTabValid("Nightly");
    plm.txtRetrieveDelay.Paste("10");
    // [idea]
    std::cout << (isRefused ? "refused once, " : "") << changes << " changes\n";

    for (PaviseTab* const tab : tabs)
        if (!tab->IsTabValid("Nightly")) return 1;
    for (PaviseTab* const tab : tabs) tab->SaveData();
    record->Id = 1;  // the host stores the entry's own row, and numbers it
    record->SaveNolOverrides();
    // [edit]
    for (const auto& row : memory->tables["NOL_Override"])
        for (const LintelField& field : row) std::cout << field.Name << " = " << FieldToText(field) << '\n';
    InstallServices({});
}
