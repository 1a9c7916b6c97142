// Random entries beside two other readings of them: the fields read day by day, and a calendar library's
// expansion of the exported rule.
#include <gtest/gtest.h>
#include <libical/ical.h>

#include <memory>
#include <random>
#include <set>

#include "NolSchedCtls/base/text.h"
#include "outlook/recurrence_rule.h"
#include "tests/outlook/entry_line.h"

namespace NolSchedCtls::Testing {
namespace {

constexpr double thirtyYears = 10958;
constexpr double second = 1.0 / 86400;
constexpr std::size_t mostRuns = 60;

int Below(std::mt19937& random, int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
}

// Of any code; half of them with excluded days, half with an end.
Entry RandomEntry(std::mt19937& random) {
    const auto below = [&random](int limit) { return Below(random, limit); };
    const char code = "OHDWMA"[below(6)];
    const int first = 32874 + below(14600);  // 1990 to 2029
    std::string included(9, 'Y');
    if (below(2) == 0)
        for (char& letter : included) letter = below(4) == 0 ? 'N' : 'Y';
    std::ostringstream line;
    line << code << ' ' << 1 + below(code == 'W' ? 52 : 24) << ' ' << below(32) << '/' << below(6) << '/'
         << 1 + below(7) << ' ' << included << ' ' << IsoText(first + below(86400) / 86400.0) << ' '
         << IsoText(below(2) == 0 ? 50040
                                  : first - 9 + below(below(3) == 0 ? 60 : 11000) + below(86400) / 86400.0)
         << ' ' << std::array{60, 60, 15, 90, 1440}[static_cast<std::size_t>(below(5))];
    return Entry(line.str());
}

std::set<int> SomeHolidays() {
    std::set<int> days;
    for (int day = 32874; day < 60000; day += 13 + day % 31) days.insert({day, day + day % 2});
    return days;
}

const std::set<int> holidayNumbers = SomeHolidays();
const Holidays holidays{{holidayNumbers.begin(), holidayNumbers.end()}};

bool IsWeekdayIncluded(const CNolSchedData& record, int day) {
    return record.*includes[static_cast<std::size_t>((day - 1) % 7)] == "Y";  // day 1 was a Sunday
}

bool IsNoExcludedHoliday(const CNolSchedData& record, int day) {
    return (record.IncludeHolidays == "Y" || !holidayNumbers.contains(day)) &&
           (record.IncludeDayAfterHol == "Y" || !holidayNumbers.contains(day - 1));
}

void ExpectEqual(const std::vector<DateTime>& ours, const std::vector<DateTime>& theirs,
                 const std::string& about) {
    if (ours == theirs) return;
    ADD_FAILURE() << about << "\nours:   " << Joined(ours, IsoText)
                  << "\ntheirs: " << Joined(theirs, IsoText);
}

bool IsDayOfRule(const CNolSchedData& r, int day) {
    const DateTimeParts date = SplitDateTime(day), first = SplitDateTime(r.FirstDateTime);
    const int firstDay = static_cast<int>(r.FirstDateTime), weekday = (day - 1) % 7 + 1;
    const char code = r.Periodicity.front();
    if (code == 'O') return day == firstDay;
    if (code == 'H') return true;
    if (code == 'D') return (day - firstDay) % r.Frequency == 0;
    if (code == 'W' || code == 'A')
        if (weekday != r.WhichWeekday) return false;
    if (code == 'W') return ((day - 1) / 7 - (firstDay - 1) / 7) % r.Frequency == 0;
    if ((date.year * 12 + date.month - first.year * 12 - first.month) % r.Frequency != 0) return false;
    if (code == 'A' && r.WhichWeek == 0) return SplitDateTime(day + 7).month != date.month;
    if (code == 'A') return (date.day - 1) / 7 + 1 == r.WhichWeek;
    return r.WhichMonthDate == 0 ? SplitDateTime(day + 1).day == 1 : date.day == r.WhichMonthDate;
}

std::int64_t SecondsOf(DateTime dateTime) { return std::llround(dateTime * 86400); }

// Day by day, and with hourly entries minute by minute.
std::vector<DateTime> PlainRuns(const Entry& entry, int from, int to) {
    const CNolSchedData& r = entry.record;
    const std::int64_t first = SecondsOf(r.FirstDateTime), timeOfDay = first % 86400;
    const std::int64_t step = r.Periodicity == "H" ? r.Frequency * entry.settings.periodMinutes * 60 : 86400;
    const std::int64_t last =
        static_cast<int>(r.FinalDateTime) == 50040 ? SecondsOf(99999) : SecondsOf(r.FinalDateTime);
    std::vector<DateTime> runs;
    for (int day = from; day < to; ++day) {
        if (!IsWeekdayIncluded(r, day) || !IsNoExcludedHoliday(r, day) || !IsDayOfRule(r, day)) continue;
        for (std::int64_t time = timeOfDay % 60; time < 86400; time += 60) {
            const std::int64_t moment = day * std::int64_t{86400} + time;
            if (moment >= first && moment <= last && (moment - first) % step == 0)
                runs.push_back(day + static_cast<double>(time) / 86400);
        }
    }
    return runs;
}

TEST(Outlook, RunsAreThoseOfTheFieldsReadDayByDay) {
    std::mt19937 random(20260302);
    for (int count = 0; count < 3000; ++count) {
        const Entry entry = RandomEntry(random);
        const Schedule schedule(entry.record, holidays, entry.settings);
        const int from =
            static_cast<int>(entry.record.FirstDateTime) - 40 + Below(random, count % 2 == 0 ? 41 : 9000);
        const int to = from + (entry.record.Periodicity == "H" ? 20 : 1000);
        const auto theirs = PlainRuns(entry, from, to);
        ExpectEqual(Taken(schedule.RunsBetween(from, to - second), 100000), theirs, entry.line);
        const auto next = schedule.NextAfter(from - second);
        EXPECT_EQ(next && *next < to ? *next : 0, theirs.empty() ? 0 : theirs.front()) << entry.line;
    }
}

icaltimetype IcalTime(DateTime dateTime) {
    std::string text = IsoText(dateTime);
    std::erase_if(text, [](char mark) { return mark == '-' || mark == ':'; });
    return icaltime_from_string(text.c_str());
}

using RuleIterator = std::unique_ptr<icalrecur_iterator, decltype(&icalrecur_iterator_free)>;

// An hourly rule begins anew at `from`, which is one of its steps: set_start would lose its phase. Nothing
// for a rule that has no run.
RuleIterator Expansion(const std::string& rule, DateTime first, DateTime from) {
    const bool beginsAnew = rule.starts_with("FREQ=HOURLY") || rule.starts_with("FREQ=MINUTELY");
    const auto parsed = icalrecurrencetype_from_string(rule.c_str());
    RuleIterator iterator{icalrecur_iterator_new(parsed, IcalTime(beginsAnew ? from : first)),
                          &icalrecur_iterator_free};
    if (iterator && !beginsAnew && from != first)
        icalrecur_iterator_set_start(iterator.get(), IcalTime(from));
    return iterator;
}

// The rule knows the excluded weekdays; holidays are the event's.
std::vector<DateTime> RuleRuns(const CNolSchedData& r, const std::string& rule, DateTime start,
                               DateTime from) {
    std::vector<DateTime> runs;
    const RuleIterator iterator = Expansion(rule, start, from);
    while (iterator && runs.size() < mostRuns) {
        const icaltimetype t = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(t)) break;
        const DateTime run = ComposeDateTime({t.year, t.month, t.day, t.hour, t.minute, t.second});
        if (run >= r.FirstDateTime + thirtyYears) break;
        if (IsNoExcludedHoliday(r, static_cast<int>(run))) runs.push_back(run);
    }
    return runs;
}

// The event starts with FirstDateTime or with the first run; looked at from there, and from a later moment
// on.
TEST(Outlook, RunsAreThoseOfTheRuleExpandedByACalendarLibrary) {
    std::mt19937 random(20260302);
    for (int count = 0; count < 20000; ++count) {
        const Entry entry = RandomEntry(random);
        const CNolSchedData& r = entry.record;
        const Schedule schedule(r, holidays, entry.settings);
        const DateTime start =
            count % 2 == 0 ? schedule.NextAfter(1).value_or(r.FirstDateTime) : r.FirstDateTime;
        const double step = r.Periodicity == "H" ? r.Frequency * entry.settings.periodMinutes / 1440.0 : 1;
        const DateTime later = start + step * static_cast<int>(Below(random, 10000) / step);
        const std::string rule = RecurrenceRule(r, entry.settings);
        for (const DateTime from : {start, later})
            ExpectEqual(Taken(schedule.RunsBetween(from, r.FirstDateTime + thirtyYears - second), mostRuns),
                        rule.empty() ? PlainRuns(entry, static_cast<int>(from), static_cast<int>(from) + 1)
                                     : RuleRuns(r, rule, start, from),
                        entry.line + " " + rule + " " + IsoText(from));
    }
}

}  // namespace
}  // namespace NolSchedCtls::Testing
