// Entries that do not do what one may think they do.
#pragma once

#include <vector>

#include "host/entries/entry_outlook.h"

namespace NolSchedCtls {

struct CheckedEntry {
    std::int64_t id = 0;
    std::string name;
    std::string state;
    std::string reason;  // may be empty: the state says it
};

// By Id, those that never run, have ended, cannot be shown or lack their group or a scenario, and those with
// an override that still runs when the same group runs again: within the 31 days to come.
std::vector<CheckedEntry> CheckEntries(Workspace& workspace);

}  // namespace NolSchedCtls
