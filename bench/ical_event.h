// The yardstick for what is done to one schedule: an event parsed and printed by libical.
#pragma once

#include <libical/ical.h>

#include <string>

namespace NolSchedCtls::Bench {

// The least that an event has to have, and the rule: "RRULE:...", a whole line, or nothing.
inline std::string EventOf(const std::string& rule) {
    return "BEGIN:VEVENT\r\nUID:1\r\nDTSTAMP:20260301T120000Z\r\nDTSTART:20260302T090000\r\n" + rule +
           "END:VEVENT\r\n";
}

inline void ParseAndPrint(const std::string& event) {
    icalcomponent* const component = icalparser_parse_string(event.c_str());
    icalmemory_free_buffer(icalcomponent_as_ical_string_r(component));
    icalcomponent_free(component);
}

}  // namespace NolSchedCtls::Bench
