// The display texts of the lists, the defaults of a new entry, and the names of the days.
#pragma once

#include <string>

#include "NolSchedCtls/base/collection.h"
#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

struct CodeOption {
    std::string Value;
};

// Keyed "Download", "Purge" and "Days".
using CodeOptionSet = KeyedCollection<CodeOption>;

// A row of a code table: column "UIVal" is the text to display.
using CodeRow = KeyedCollection<std::string>;

class NOLSCHED_API ICodeTables {
  public:
    virtual ~ICodeTables() = default;
    virtual const CodeOptionSet& ScheduledDefaults() = 0;
    virtual const CodeOptionSet& ImmediateDefaults() = 0;
    // 1 to 28 the ordinals, 29 "Last".
    virtual const KeyedCollection<std::string>& MonthDayNames() = 0;
    // Under the keys "O", "H", "D", "W" and "A".
    virtual const KeyedCollection<std::string>& PeriodNames() = 0;
    // 1 "Day", 2 to 8 "Sunday" to "Saturday".
    virtual const KeyedCollection<CodeRow>& DayNames() = 0;
};

}  // namespace NolSchedCtls::inline v1
