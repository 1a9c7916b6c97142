// The library of calendar files: it draws in tables of all the world's letters, which most starts do without.
#pragma once

#include <libical/ical.h>

#include <cstdlib>

#include "platform/on_demand.h"

namespace NolSchedCtls::Libical {

#define NOLSCHED_LIBICAL(name) NOLSCHED_ON_DEMAND("libical.so.3", name)

NOLSCHED_LIBICAL(icalcomponent_add_property);
NOLSCHED_LIBICAL(icalcomponent_as_ical_string_r);
NOLSCHED_LIBICAL(icalcomponent_foreach_recurrence);
NOLSCHED_LIBICAL(icalcomponent_free);
NOLSCHED_LIBICAL(icalcomponent_get_dtend);
NOLSCHED_LIBICAL(icalcomponent_get_dtstart);
NOLSCHED_LIBICAL(icalcomponent_get_first_component);
NOLSCHED_LIBICAL(icalcomponent_get_first_property);
NOLSCHED_LIBICAL(icalcomponent_get_next_component);
NOLSCHED_LIBICAL(icalcomponent_get_next_property);
NOLSCHED_LIBICAL(icalcomponent_get_recurrenceid);
NOLSCHED_LIBICAL(icalcomponent_get_status);
NOLSCHED_LIBICAL(icalcomponent_get_summary);
NOLSCHED_LIBICAL(icalcomponent_get_uid);
NOLSCHED_LIBICAL(icalcomponent_isa);
NOLSCHED_LIBICAL(icalcomponent_new);
NOLSCHED_LIBICAL(icalcomponent_set_dtend);
NOLSCHED_LIBICAL(icalcomponent_set_dtstart);
NOLSCHED_LIBICAL(icalparser_parse_string);
NOLSCHED_LIBICAL(icalproperty_get_rrule);
NOLSCHED_LIBICAL(icalproperty_get_xlicerror);
NOLSCHED_LIBICAL(icalproperty_new_description);
NOLSCHED_LIBICAL(icalproperty_new_dtstamp);
NOLSCHED_LIBICAL(icalproperty_new_dtstart);
NOLSCHED_LIBICAL(icalproperty_new_exdate);
NOLSCHED_LIBICAL(icalproperty_new_rrule);
NOLSCHED_LIBICAL(icalproperty_new_summary);
NOLSCHED_LIBICAL(icalproperty_new_uid);
NOLSCHED_LIBICAL(icalrecurrencetype_from_string);
NOLSCHED_LIBICAL(icaltime_from_string);
NOLSCHED_LIBICAL(icaltime_from_timet_with_zone);
NOLSCHED_LIBICAL(icaltimezone_get_utc_timezone);

#undef NOLSCHED_LIBICAL

struct Freed {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
    void operator()(char* text) const { std::free(text); }
};

}  // namespace NolSchedCtls::Libical
