// Calendar files (iCalendar).
#pragma once

#include <string>
#include <vector>

#include "host/entries/holiday_store.h"

namespace NolSchedCtls {

// The whole days of a file's events, each day under its event's name: events of several days give each of
// them, rules their days until the end of 2036. Throws UsageError for a file that cannot be read, is no
// calendar or has no event of whole days.
std::vector<Holiday> ReadHolidays(const std::string& path);

}  // namespace NolSchedCtls
