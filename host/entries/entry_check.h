// Entries that do not do what one may think they do.
#pragma once

#include <functional>

#include "host/entries/entry_outlook.h"

namespace NolSchedCtls {

struct CheckedEntry {
    std::int64_t id = 0;
    std::string name;
    std::string state;
    std::string reason;  // may be empty: the state says it
};

// Those that never run, have ended, cannot be shown or lack their group or a scenario, by Id; then those with
// an override that still runs when the same group runs again: at the next run, or within the 31 days to come.
void CheckEntries(Workspace& workspace, const std::function<void(const CheckedEntry&)>& tell);

}  // namespace NolSchedCtls
