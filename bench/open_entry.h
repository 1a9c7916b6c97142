// What is measured without a database: services in memory, and an entry in them.
#pragma once

#include <memory>
#include <vector>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"

namespace NolSchedCtls::Bench {

// The services in memory, with a group, a scenario, and the four overrides of entry 1. The clock stands.
void UseMemory();

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
