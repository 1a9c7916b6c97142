// Opening an entry in six fresh tabs and closing it again. Held to an event of libical.
#include "bench/claims.h"
#include "bench/ical_event.h"
#include "bench/open_entry.h"

int main(int argc, char** argv) {
    using namespace NolSchedCtls::Bench;
    UseMemory();
    Measure("session", [] { const OpenEntry entry; });
    Measure("ical", [event = EventOf("RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=MO\r\n")] { ParseAndPrint(event); });
    return RunClaims(argc, argv,
                     {{"a stored entry in six fresh tabs, open and close / libical", "session", "ical", 1.5,
                       "", "", true}});
}
