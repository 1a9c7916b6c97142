// Holidays out of a calendar file (iCalendar), as countries and companies publish them.
#pragma once

#include <string>
#include <vector>

#include "host/entries/holiday_store.h"

namespace NolSchedCtls {

struct CalendarHolidays {
    std::vector<Holiday> days;  // each day as often as an event falls on it
    int passedOver = 0;         // events that are cancelled, not of whole days or outside of 1900 to 2099
};

// The whole days of the events, each under its event's name: of several days each one, of rules those until
// 2099. Throws UsageError for a file that cannot be read or is no calendar, and for an event with a damaged
// date or rule, with one that repeats within a day, or of more than a year.
CalendarHolidays ReadHolidays(const std::string& path);

}  // namespace NolSchedCtls
