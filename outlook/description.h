// A recurrence in words.
#pragma once

#include <string>

#include "outlook/recurrence.h"

namespace NolSchedCtls::inline v1 {

// "Monthly on the last Friday of every 2 months at 22:30, not on holidays, until Dec 31, 2027". Whether the
// entry is paused or ever runs is not told.
std::string DescribeSchedule(const CNolSchedData& record, const OutlookSettings& settings = {});

// "Saturdays, Sundays and holidays": the days of its rule on which the entry does not run. Empty where there
// are none, and for a record without a recurrence.
std::string ExceptionsText(const CNolSchedData& record, const OutlookSettings& settings = {});

// "Friday", "15th", "2nd Monday", "last day": the day of a code that has one.
std::string DayText(const Recurrence& recurrence);

// "Friday is excluded", "Sunday and holidays are excluded".
std::string ExcludedText(ExcludedDays excluded);

}  // namespace NolSchedCtls::inline v1
