#include "host/entries/calendar_file.h"

#include <utf8.h>

#include <cmath>
#include <fstream>
#include <iterator>

#include "host/entries/arguments.h"
#include "host/entries/libical.h"

namespace NolSchedCtls {

namespace {

using namespace Libical;

struct Free {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, Free>;

std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad() || (text.empty() && file.peek() != EOF))
        throw UsageError("The file " + Quoted(path) + " cannot be read.");
    if (!utf8::is_valid(text)) throw UsageError("The file " + Quoted(path) + " is not valid UTF-8.");
    return text;
}

// Counted from 1970 on, as the library counts seconds.
DateTime DayOf(std::time_t seconds) {
    constexpr int secondsOfDay = 86400;
    constexpr DateTime day1970 = 25569;
    return day1970 + std::floor(static_cast<double>(seconds) / secondsOfDay);
}

struct Found {
    std::vector<Holiday> days;
    std::string name;
};

void TakeSpan(icalcomponent* /*event*/, icaltime_span* span, void* found) {
    auto& [days, name] = *static_cast<Found*>(found);
    DateTime day = DayOf(span->start);
    do days.push_back({day, name});
    while (++day < DayOf(span->end));
}

void TakeEvent(icalcomponent* event, std::vector<Holiday>& days) {
    const icaltimetype start = icalcomponent_get_dtstart(event);
    if (start.is_date == 0) return;  // a meeting, not a day
    const char* const summary = icalcomponent_get_summary(event);
    Found found{{}, summary == nullptr ? "Holiday" : summary};
    icalcomponent_foreach_recurrence(event, start, icaltime_from_string("20370101T000000"), TakeSpan, &found);
    days.insert(days.end(), found.days.begin(), found.days.end());
}

void TakeEvents(icalcomponent* component, std::vector<Holiday>& days) {
    if (icalcomponent_isa(component) == ICAL_VEVENT_COMPONENT) return TakeEvent(component, days);
    auto* part = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT);
    for (; part != nullptr; part = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT))
        TakeEvents(part, days);
}

}  // namespace

std::vector<Holiday> ReadHolidays(const std::string& path) {
    const Component calendar(icalparser_parse_string(ReadText(path).c_str()));
    if (!calendar) throw UsageError("The file " + Quoted(path) + " is no calendar (iCalendar).");
    std::vector<Holiday> days;
    TakeEvents(calendar.get(), days);
    if (days.empty()) throw UsageError("The calendar " + Quoted(path) + " has no event of whole days.");
    return days;
}

}  // namespace NolSchedCtls
