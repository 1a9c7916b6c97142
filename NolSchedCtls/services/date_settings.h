// The user's regional settings for dates.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

enum class DateFieldOrder { MonthFirst, DayFirst, YearFirst };

class NOLSCHED_API IDateSettings {
  public:
    virtual ~IDateSettings() = default;
    // The pattern of a date that is being edited; its numbers stand in the order of DateOrder. DDDD is the
    // weekday, MMMM the month's name, MM, M, DD, D and YYYY are numbers; anything else stands for itself.
    virtual std::string EditDateFormat() = 0;
    // The order of the short form: "3/2/2026", "2/3/2026" or "2026/3/2".
    virtual DateFieldOrder DateOrder() = 0;
    // Where a calendar's week begins; a weekday's number is that of IDayConversion, 1 for Sunday.
    virtual std::int32_t FirstDayOfWeek() { return 1; }
};

// Settings of that order with the edit format "MM/DD/YYYY", "DD/MM/YYYY" or "YYYY/MM/DD".
NOLSCHED_API std::unique_ptr<IDateSettings> MakeDateSettings(DateFieldOrder order,
                                                             std::int32_t firstDayOfWeek = 1);

}  // namespace NolSchedCtls::inline v1
