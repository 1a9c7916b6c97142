// Calendar files (iCalendar).
#pragma once

#include <string>
#include <vector>

#include "host/entries/entry_outlook.h"

namespace NolSchedCtls {

// The whole days of a file's events, each day under its event's name: events of several days give each of
// them, rules their days until the end of 2036. Throws UsageError for a file that cannot be read, is no
// calendar or has no event of whole days.
std::vector<Holiday> ReadHolidays(const std::string& path);

inline constexpr const char* calendarBegin =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//NolSchedCtls//nolsched//EN\r\n";
inline constexpr const char* calendarEnd = "END:VCALENDAR\r\n";

// The event of an entry that has runs, to stand between the two: its first run, the rule of the others,
// without those that holidays take; no time zone is named. Empty for an entry that has none.
std::string EventOf(const ListedEntry& entry, const EntryOutlook& outlook);

}  // namespace NolSchedCtls
