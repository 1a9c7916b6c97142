// An entry as an event of a calendar file (iCalendar).
#pragma once

#include <string>

#include "host/entries/entry_outlook.h"

namespace NolSchedCtls {

inline constexpr const char* calendarBegin =
    "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//NolSchedCtls//nolsched//EN\r\n";
inline constexpr const char* calendarEnd = "END:VCALENDAR\r\n";

// The event of an entry that has runs, to stand between the two: its first run, the rule of the others,
// without those that holidays take; no time zone is named. Empty for an entry that has none, or a rule that
// calendars cannot write (an interval of more than 32767).
std::string EventOf(const ListedEntry& entry, const EntryOutlook& outlook);

}  // namespace NolSchedCtls
