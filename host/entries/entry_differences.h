// What two users have made of one entry.
#pragma once

#include <string>
#include <vector>

#include "host/entries/entry_session.h"

namespace NolSchedCtls {

struct FieldDifference {
    const Page* page = nullptr;  // of the session; nothing for what is the entry's own: its name, or a pause
    const ViewField* field = nullptr;
    const char* own = nullptr;
    std::string shown;   // here
    std::string stored;  // as the page would show it
};

// The fields that the pages show otherwise than those of the entry as it is stored now, in the pages' order.
// Throws what opening it throws.
std::vector<FieldDifference> DifferencesFromStored(EntrySession& session);

}  // namespace NolSchedCtls
