#include "host/entries/calendar_event.h"

#include <ctime>
#include <set>

#include "host/entries/libical.h"
#include "host/entries/visible_text.h"
#include "outlook/description.h"
#include "outlook/recurrence_rule.h"

namespace NolSchedCtls {

namespace {

using namespace Libical;

icaltimetype TimeOf(DateTime dateTime) {
    std::string text = IsoText(dateTime);
    std::erase_if(text, [](char letter) { return letter == '-' || letter == ':'; });
    return icaltime_from_string(text.c_str());
}

// Of a moment on this machine's clock.
icaltimetype UtcOf(DateTime local) {
    const DateTimeParts parts = SplitDateTime(local);
    std::tm time{};
    time.tm_year = parts.year - 1900;
    time.tm_mon = parts.month - 1;
    time.tm_mday = parts.day;
    time.tm_hour = parts.hour;
    time.tm_min = parts.minute;
    time.tm_sec = parts.second;
    time.tm_isdst = -1;
    return icaltime_from_timet_with_zone(std::mktime(&time), 0, icaltimezone_get_utc_timezone());
}

// Holidays are no part of a rule: the runs that it has on them, or the day after, are named.
std::set<DateTime> RunsOnHolidays(const CNolSchedData& record, const EntryOutlook& outlook) {
    std::set<DateTime> runs;
    const Schedule rule(record, {}, outlook.Settings());
    const auto take = [&](DateTime day) {
        for (const DateTime run : rule.RunsBetween(day, day + 86399.0 / 86400)) runs.insert(run);
    };
    for (const DateTime day : outlook.Days().sound) {
        if (record.IncludeHolidays != "Y") take(day);
        if (record.IncludeDayAfterHol != "Y") take(day + 1);
    }
    return runs;
}

}  // namespace

std::string EventOf(const ListedEntry& entry, const EntryOutlook& outlook) {
    const CNolSchedData& record = *entry.record;
    const Schedule schedule = outlook.ScheduleOf(record);
    const auto runs = schedule.RunsBetween(record.FirstDateTime, farthest);
    if (runs.begin() == runs.end()) return {};
    const DateTime first = *runs.begin();
    const std::unique_ptr<icalcomponent, Freed> event(icalcomponent_new(ICAL_VEVENT_COMPONENT));
    const auto add = [&event](icalproperty* property) { icalcomponent_add_property(event.get(), property); };
    add(icalproperty_new_uid(("nol-" + std::to_string(entry.id) + "@nolsched").c_str()));
    add(icalproperty_new_dtstamp(UtcOf(outlook.Now())));
    add(icalproperty_new_dtstart(TimeOf(first)));
    add(icalproperty_new_summary(WithoutControls(record.EditorName).c_str()));
    const std::string description = entry.group + ": " + DescribeSchedule(record, outlook.Settings());
    add(icalproperty_new_description(WithoutControls(description).c_str()));
    if (const std::string text = RecurrenceRule(record, outlook.Settings()); !text.empty()) {
        const icalrecurrencetype rule = icalrecurrencetype_from_string(text.c_str());
        if (rule.freq == ICAL_NO_RECURRENCE) return {};
        add(icalproperty_new_rrule(rule));
    }
    for (const DateTime run : RunsOnHolidays(record, outlook))
        if (run > first) add(icalproperty_new_exdate(TimeOf(run)));
    const std::unique_ptr<char, Freed> text(icalcomponent_as_ical_string_r(event.get()));
    return text.get();
}

}  // namespace NolSchedCtls
