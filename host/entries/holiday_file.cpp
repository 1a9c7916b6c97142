#include "host/entries/holiday_file.h"

#include <utf8.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>

#include "host/entries/arguments.h"
#include "host/entries/libical.h"

namespace NolSchedCtls {

namespace {

using namespace Libical;

constexpr DateTime firstDay = 2;     // 1900-01-01
constexpr DateTime lastDay = 73050;  // 2099-12-31
constexpr int mostDaysOfEvent = 366;
constexpr std::size_t mostDays = 100'000;
constexpr std::streamoff mostBytes = 100'000'000;
constexpr std::size_t longestName = 1000;  // bytes

// A line that was folded, perhaps within a letter, is one again.
std::string Unfolded(const std::string& text) {
    std::string unfolded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t end = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n' ? i + 1 : i;
        const bool isFold =
            text[end] == '\n' && end + 1 < text.size() && (text[end + 1] == ' ' || text[end + 1] == '\t');
        if (isFold)
            i = end + 1;
        else
            unfolded += text[i];
    }
    return unfolded;
}

std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    std::array<char, 1 << 16> part{};
    while (file.read(part.data(), part.size()) || file.gcount() > 0) {
        text.write(part.data(), file.gcount());
        if (text.tellp() > mostBytes)
            throw UsageError("The file " + Quoted(path) + " is larger than 100 MB.");
    }
    if (!file.is_open() || file.bad() || text.fail())
        throw UsageError("The file " + Quoted(path) + " cannot be read: " + std::strerror(errno) + ".");
    if (text.view().find('\0') != std::string_view::npos)
        throw UsageError("The file " + Quoted(path) + " holds a NUL character.");
    std::string unfolded = Unfolded(text.str());
    if (!utf8::is_valid(unfolded)) throw UsageError("The file " + Quoted(path) + " is not valid UTF-8.");
    return unfolded;
}

// Counted from 1970 on, as the library counts seconds.
DateTime DayOf(std::time_t seconds) {
    constexpr int secondsOfDay = 86400;
    constexpr DateTime day1970 = 25569;
    return day1970 + std::floor(static_cast<double>(seconds) / secondsOfDay);
}

DateTime DayOf(const icaltimetype& time) { return ComposeDateTime({time.year, time.month, time.day}); }

bool IsDay(const icaltimetype& time) {
    using namespace std::chrono;
    return time.year >= 100 && time.year <= 9999 &&
           year_month_day{year{time.year}, month{static_cast<unsigned>(time.month)},
                          day{static_cast<unsigned>(time.day)}}
               .ok();
}

bool IsMidnight(const icaltimetype& time) {
    return time.year != 0 && time.hour == 0 && time.minute == 0 && time.second == 0;
}

icaltimetype WithoutTime(icaltimetype time) {
    time.is_date = 1;
    time.zone = nullptr;
    return time;
}

// The days that a rule gives are moved one by one by events that name them.
using MovedDays = std::set<std::pair<std::string, DateTime>>;

struct Taking {
    CalendarHolidays& holidays;
    const MovedDays& moved;
    std::string uid;
    std::string name;
};

// Called by the library, through which nothing may be thrown.
void TakeSpan(icalcomponent* /*event*/, icaltime_span* span, void* taking) noexcept {
    auto& [holidays, moved, uid, name] = *static_cast<Taking*>(taking);
    DateTime day = DayOf(span->start);
    if (moved.contains({uid, day}) || holidays.days.size() > mostDays) return;
    do
        if (day >= firstDay && day <= lastDay) holidays.days.push_back({day, name});
    while (++day < DayOf(span->end));
}

class HolidayFile {
  public:
    explicit HolidayFile(const std::string& pathA)
        : path(pathA), calendar(icalparser_parse_string(ReadText(path).c_str())) {
        if (!calendar) throw UsageError("The file " + Quoted(path) + " is no calendar (iCalendar).");
        FindEvents(calendar.get());
    }

    CalendarHolidays Read() {
        for (icalcomponent* const event : events) {
            const std::size_t before = holidays.days.size();
            if (IsTaken(event)) Take(event);
            if (holidays.days.size() == before) ++holidays.passedOver;
            if (holidays.days.size() > mostDays)
                throw UsageError("The calendar " + Quoted(path) + " has more than " +
                                 std::to_string(mostDays) + " days.");
        }
        if (holidays.days.empty())
            throw UsageError("The calendar " + Quoted(path) +
                             " has no event of whole days from 1900 to 2099.");
        return std::move(holidays);
    }

  private:
    void FindEvents(icalcomponent* component) {
        if (icalcomponent_isa(component) == ICAL_VEVENT_COMPONENT) return AddEvent(component);
        auto* part = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT);
        for (; part != nullptr; part = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT))
            FindEvents(part);
    }

    void AddEvent(icalcomponent* event) {
        events.push_back(event);
        const icaltimetype movedFrom = icalcomponent_get_recurrenceid(event);
        if (movedFrom.year != 0 && IsDay(movedFrom))
            moved.emplace(Text(icalcomponent_get_uid(event)), DayOf(movedFrom));
    }

    // An event from midnight to midnight is one of whole days, too, and made so.
    bool IsTaken(icalcomponent* event) {
        if (icalcomponent_get_status(event) == ICAL_STATUS_CANCELLED) return false;
        RefuseDamage(event);
        const icaltimetype start = icalcomponent_get_dtstart(event);
        const icaltimetype end = icalcomponent_get_dtend(event);
        if (start.year == 0 || (start.is_date == 0 && !(IsMidnight(start) && IsMidnight(end)))) return false;
        if (!IsDay(start) || (end.year != 0 && !IsDay(end))) Refuse(event, "has a day that no calendar has");
        if (Name(event).size() > longestName)
            Refuse(event, "has a name of more than " + std::to_string(longestName) + " bytes");
        if (end.year != 0 && DayOf(end) - DayOf(start) > mostDaysOfEvent)
            Refuse(event, "lasts more than " + std::to_string(mostDaysOfEvent) + " days");
        if (start.is_date != 0) return true;
        icalcomponent_set_dtstart(event, WithoutTime(start));
        icalcomponent_set_dtend(event, WithoutTime(end));
        return true;
    }

    void RefuseDamage(icalcomponent* event) const {
        constexpr std::array dateProperties = {"DTSTART", "DTEND",  "DURATION",     "RRULE",
                                               "RDATE",   "EXDATE", "RECURRENCE-ID"};
        auto* error = icalcomponent_get_first_property(event, ICAL_XLICERROR_PROPERTY);
        for (; error != nullptr; error = icalcomponent_get_next_property(event, ICAL_XLICERROR_PROPERTY))
            for (const std::string property : dateProperties)
                if (const std::string text = Text(icalproperty_get_xlicerror(error));
                    text.find(property) != std::string::npos)
                    Refuse(event, "has a damaged " + property + ":" + text.substr(text.rfind(": ") + 1));
        auto* const rule = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY);
        if (rule != nullptr && icalproperty_get_rrule(rule).freq < ICAL_DAILY_RECURRENCE)
            Refuse(event, "repeats within a day");
    }

    [[noreturn]] void Refuse(icalcomponent* event, const std::string& trouble) const {
        throw UsageError("The event " + Quoted(Name(event)) + " of " + Quoted(path) + " " + trouble + ".");
    }

    void Take(icalcomponent* event) {
        static const MovedDays none;
        const bool isMoved = icalcomponent_get_recurrenceid(event).year != 0;
        Taking taking{holidays, isMoved ? none : moved, Text(icalcomponent_get_uid(event)), Name(event)};
        icalcomponent_foreach_recurrence(event, icalcomponent_get_dtstart(event),
                                         icaltime_from_string("21000101T000000"), TakeSpan, &taking);
    }

    static std::string Text(const char* text) { return text == nullptr ? "" : text; }
    static std::string Name(icalcomponent* event) {
        const std::string summary = Text(icalcomponent_get_summary(event));
        return summary.empty() ? "Holiday" : summary;
    }

    std::string path;
    std::unique_ptr<icalcomponent, Freed> calendar;
    std::vector<icalcomponent*> events;
    MovedDays moved;
    CalendarHolidays holidays;
};

}  // namespace

CalendarHolidays ReadHolidays(const std::string& path) { return HolidayFile(path).Read(); }

}  // namespace NolSchedCtls
