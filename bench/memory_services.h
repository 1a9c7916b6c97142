// Services that answer from memory, for what is measured without a database.
#pragma once

#include <memory>
#include <vector>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"

namespace NolSchedCtls::Bench {

// Every entry has an override of each study kind; every document that is asked for is there. The clock
// stands.
void InstallMemoryServices();

// A stored weekly entry with its four overrides.
std::shared_ptr<CNolSchedData> StoredRecord();

// That entry opened in six fresh tabs, as a host does.
struct OpenEntry {
    OpenEntry();

    std::shared_ptr<CNolSchedData> record = StoredRecord();
    std::shared_ptr<CPaviseNotify> notifier = std::make_shared<CPaviseNotify>();
    std::vector<std::shared_ptr<PaviseTab>> tabs;
};

}  // namespace NolSchedCtls::Bench
