// An entry's schedule as a line of text, for lists of entries.
#pragma once

#include <memory>
#include <string>

#include "host/entries/entry_store.h"

namespace NolSchedCtls {

struct Sentence {
    std::string text;     // the trouble in parentheses, where there is one
    std::string trouble;  // why no tab can show the record, or no record can hold the row
};

// Read off a schedule tab that has loaded the record.
Sentence SentenceOf(const std::shared_ptr<CNolSchedData>& record);
Sentence SentenceOf(const ListedEntry& entry);

}  // namespace NolSchedCtls
