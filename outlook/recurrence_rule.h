// A recurrence as calendars write it.
#pragma once

#include <string>

#include "outlook/recurrence.h"

namespace NolSchedCtls::inline v1 {

// The rule of RFC 5545 that gives the record's runs for an event from FirstDateTime, or from its first run,
// on: "FREQ=MONTHLY;INTERVAL=2;BYDAY=-1FR;UNTIL=20271231T223000". Excluded weekdays are within it, holidays
// are not. Empty for an entry that runs once, is immediate or cannot be read, and where the weekday of its
// runs is excluded.
std::string RecurrenceRule(const CNolSchedData& record, const OutlookSettings& settings = {});

}  // namespace NolSchedCtls::inline v1
