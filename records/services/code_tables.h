// The display texts of the lists, the defaults of a new entry, the names of the days, and the clock.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "records/services/collection.h"
#include "records/services/date_time.h"
#include "records/services/export.h"

namespace NolSchedCtls {

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

// 1 is "Sunday", 7 "Saturday". Both raise NolSchedError for what is no weekday.
class NOLSCHED_API IDayConversion {
  public:
    virtual ~IDayConversion() = default;
    virtual std::string DayNameOfNumber(std::int32_t nNumber) = 0;
    virtual std::int32_t DayNumberOfName(std::string_view sName) = 0;
};

class NOLSCHED_API IClock {
  public:
    virtual ~IClock() = default;
    // The present date and time on the user's clock.
    virtual DateTime Now() = 0;
};

class NOLSCHED_API IMessageService {
  public:
    virtual ~IMessageService() = default;
    // Shows a modal box: flags 16 a stop sign, 48 an exclamation mark. Returns when the user has closed it.
    virtual void Show(std::string_view sText, int nFlags, std::string_view sTitle, int nHelpFile,
                      int nHelpContext) = 0;
};

}  // namespace NolSchedCtls
