#include "host/entries/calendar_file.h"

#include <utf8.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

#include "NolSchedCtls/base/app_constants.h"
#include "host/entries/arguments.h"
#include "host/entries/libical.h"
#include "outlook/description.h"
#include "outlook/recurrence_rule.h"

namespace NolSchedCtls {

namespace {

using namespace Libical;

struct Free {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
    void operator()(char* text) const { std::free(text); }
};
using Component = std::unique_ptr<icalcomponent, Free>;

std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (file.peek() != EOF) text << file.rdbuf();
    if (!file.is_open() || file.bad() || text.fail())
        throw UsageError("The file " + Quoted(path) + " cannot be read: " + std::strerror(errno) + ".");
    if (!utf8::is_valid(text.str())) throw UsageError("The file " + Quoted(path) + " is not valid UTF-8.");
    return text.str();
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

namespace {

icaltimetype TimeOf(DateTime dateTime) {
    std::string text = IsoText(dateTime);
    std::erase_if(text, [](char letter) { return letter == '-' || letter == ':'; });
    return icaltime_from_string(text.c_str());
}

// Holidays are no part of a rule: the runs that it has on them, or the day after, are named.
std::vector<DateTime> RunsOnHolidays(const CNolSchedData& record, const EntryOutlook& outlook) {
    std::vector<DateTime> runs;
    const Schedule rule(record, {}, outlook.Settings());
    const auto take = [&](DateTime day) {
        for (const DateTime run : rule.RunsBetween(day, day + 86399.0 / 86400)) runs.push_back(run);
    };
    for (const DateTime day : outlook.HolidayDays()) {
        if (record.IncludeHolidays != "Y") take(day);
        if (record.IncludeDayAfterHol != "Y") take(day + 1);
    }
    std::ranges::sort(runs);
    const auto repeated = std::ranges::unique(runs);
    runs.erase(repeated.begin(), repeated.end());
    return runs;
}

}  // namespace

std::string EventOf(const ListedEntry& entry, const EntryOutlook& outlook) {
    const CNolSchedData& record = *entry.record;
    const Schedule schedule = outlook.ScheduleOf(record);
    const auto runs = schedule.RunsBetween(record.FirstDateTime, MAppConstants::NoEndDate + 1);
    if (runs.begin() == runs.end()) return {};
    const DateTime first = *runs.begin();
    const Component event(icalcomponent_new(ICAL_VEVENT_COMPONENT));
    const auto add = [&event](icalproperty* property) { icalcomponent_add_property(event.get(), property); };
    add(icalproperty_new_uid(("nol-" + std::to_string(entry.id) + "@nolsched").c_str()));
    icaltimetype stamp = TimeOf(outlook.Now());
    stamp.zone = icaltimezone_get_utc_timezone();
    add(icalproperty_new_dtstamp(stamp));
    add(icalproperty_new_dtstart(TimeOf(first)));
    add(icalproperty_new_summary(record.EditorName.c_str()));
    add(icalproperty_new_description(DescribeSchedule(record, outlook.Settings()).c_str()));
    add(icalproperty_new_categories(entry.group.c_str()));
    if (const std::string rule = RecurrenceRule(record, outlook.Settings()); !rule.empty())
        add(icalproperty_new_rrule(icalrecurrencetype_from_string(rule.c_str())));
    for (const DateTime run : RunsOnHolidays(record, outlook))
        if (run > first) add(icalproperty_new_exdate(TimeOf(run)));
    const std::unique_ptr<char, Free> text(icalcomponent_as_ical_string_r(event.get()));
    return text.get();
}

}  // namespace NolSchedCtls
