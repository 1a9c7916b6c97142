// An entry's schedule as a line of text, for lists of entries.
#pragma once

#include <memory>
#include <string>

#include "host/entries/entry_store.h"

namespace NolSchedCtls {

// Read off a schedule tab that has loaded the record; for one that no tab can show, or no record can hold,
// the reason in parentheses.
std::string SentenceOf(const std::shared_ptr<CNolSchedData>& record);
std::string SentenceOf(const ListedEntry& entry);

}  // namespace NolSchedCtls
