// Random entries beside two other readings of them: the fields read day by day, and a calendar library's
// expansion of the exported rule.
#include <gtest/gtest.h>
#include <libical/ical.h>

#include <memory>
#include <random>
#include <set>
#include <tuple>

#include "NolSchedCtls/base/text.h"
#include "outlook/recurrence_rule.h"
#include "tests/outlook/entry_line.h"

namespace NolSchedCtls::Testing {
namespace {

constexpr double thirtyYears = 10958;
constexpr double second = 1.0 / 86400;
constexpr std::size_t mostRuns = 60;

// Entries of all codes, some with excluded days, some with an end, and a few holidays in each month.
class RandomEntries {
  public:
    Entry Next() {
        const char code = "OHDWMA"[Below(6)];
        const int first = 32874 + Below(14600);  // 1990 to 2029
        std::string included(9, 'Y');
        if (Below(2) == 0)
            for (char& letter : included) letter = Below(4) == 0 ? 'N' : 'Y';
        settings.periodMinutes = std::array{60, 60, 15, 90, 1440}[static_cast<std::size_t>(Below(5))];
        std::ostringstream words;
        words << code << ' '
              << 1 + Below(code == 'W'   ? 52
                           : code == 'H' ? 24
                                         : 12)
              << ' ' << Below(32) << '/' << Below(6) << '/' << 1 + Below(7) << ' ' << included << ' '
              << IsoText(first + Below(86400) / 86400.0) << ' '
              << IsoText(Below(2) == 0 ? 50040 : first - 9 + Below(Below(3) == 0 ? 60 : 11000) + 0.75);
        line = words.str();
        return Entry(line);
    }
    int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    std::string line;
    OutlookSettings settings;

  private:
    std::mt19937 random{20260302};
};

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

std::vector<DateTime> Taken(const RunRange& runs, std::size_t most) {
    std::vector<DateTime> taken;
    for (auto run = runs.begin(); run != runs.end() && taken.size() < most; ++run) taken.push_back(*run);
    return taken;
}

void ExpectEqual(const std::vector<DateTime>& ours, const std::vector<DateTime>& theirs,
                 const std::string& about) {
    if (ours == theirs) return;
    const auto place = std::mismatch(ours.begin(), ours.end(), theirs.begin(), theirs.end());
    const auto text = [](auto at, auto end) { return at == end ? "none" : IsoText(*at); };
    ADD_FAILURE() << about << "\nrun " << place.first - ours.begin() << ": " << text(place.first, ours.end())
                  << ", theirs: " << text(place.second, theirs.end());
}

bool IsDayOfRule(const CNolSchedData& r, int day) {
    const DateTimeParts date = SplitDateTime(day), first = SplitDateTime(r.FirstDateTime);
    const int firstDay = static_cast<int>(r.FirstDateTime), weekday = (day - 1) % 7 + 1;
    const bool isMonth = ((date.year - first.year) * 12 + date.month - first.month) % r.Frequency == 0;
    switch (r.Periodicity.front()) {
        case 'O':
            return day == firstDay;
        case 'H':
            return true;
        case 'D':
            return (day - firstDay) % r.Frequency == 0;
        case 'W':
            return weekday == r.WhichWeekday && ((day - 1) / 7 - (firstDay - 1) / 7) % r.Frequency == 0;
        case 'M':
            return isMonth &&
                   (r.WhichMonthDate == 0 ? SplitDateTime(day + 1).day == 1 : date.day == r.WhichMonthDate);
        default:
            return isMonth && weekday == r.WhichWeekday &&
                   (r.WhichWeek == 0 ? SplitDateTime(day + 7).month != date.month
                                     : (date.day - 1) / 7 + 1 == r.WhichWeek);
    }
}

std::int64_t SecondsOf(DateTime dateTime) { return std::llround(dateTime * 86400); }

// Day by day, and with hourly entries minute by minute.
std::vector<DateTime> PlainRuns(const CNolSchedData& r, int minutes, int from, int to) {
    const std::int64_t first = SecondsOf(r.FirstDateTime), timeOfDay = first % 86400;
    const std::int64_t step = r.Periodicity == "H" ? r.Frequency * minutes * 60 : 86400;
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
    RandomEntries random;
    for (int count = 0; count < 3000; ++count) {
        const Entry entry = random.Next();
        const Schedule schedule(entry.record, holidays, random.settings);
        const int from =
            static_cast<int>(entry.record.FirstDateTime) - 40 + random.Below(count % 2 == 0 ? 41 : 9000);
        const int to = from + (entry.record.Periodicity == "H" ? 20 : 1000);
        const auto theirs = PlainRuns(entry.record, random.settings.periodMinutes, from, to);
        ExpectEqual(Taken(schedule.RunsBetween(from, to - second), 100000), theirs, random.line);
        const auto next = schedule.NextAfter(from - second);
        EXPECT_EQ(next && *next < to ? *next : 0, theirs.empty() ? 0 : theirs.front()) << random.line;
    }
}

icaltimetype IcalTime(DateTime dateTime) {
    const DateTimeParts parts = SplitDateTime(dateTime);
    icaltimetype time = icaltime_null_time();
    std::tie(time.year, time.month, time.day) = std::tie(parts.year, parts.month, parts.day);
    std::tie(time.hour, time.minute, time.second) = std::tie(parts.hour, parts.minute, parts.second);
    return time;
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

std::vector<DateTime> OnlyRun(const CNolSchedData& r, DateTime from) {
    const bool isRun = r.Periodicity == "O" && from <= r.FirstDateTime && r.FinalDateTime >= r.FirstDateTime;
    const int day = static_cast<int>(r.FirstDateTime);
    if (!isRun || !IsWeekdayIncluded(r, day) || !IsNoExcludedHoliday(r, day)) return {};
    return {r.FirstDateTime};
}

// The event starts with FirstDateTime or with the first run; looked at from there, and from a later moment
// on.
TEST(Outlook, RunsAreThoseOfTheRuleExpandedByACalendarLibrary) {
    RandomEntries random;
    for (int count = 0; count < 20000; ++count) {
        const Entry entry = random.Next();
        const CNolSchedData& r = entry.record;
        const Schedule schedule(r, holidays, random.settings);
        const DateTime start =
            count % 2 == 0 ? schedule.NextAfter(1).value_or(r.FirstDateTime) : r.FirstDateTime;
        const double step = r.Periodicity == "H" ? r.Frequency * random.settings.periodMinutes / 1440.0 : 1;
        const DateTime later = start + step * static_cast<int>(random.Below(10000) / step);
        const std::string rule = RecurrenceRule(r, random.settings);
        for (const DateTime from : {start, later})
            ExpectEqual(Taken(schedule.RunsBetween(from, r.FirstDateTime + thirtyYears - second), mostRuns),
                        rule.empty() ? OnlyRun(r, from) : RuleRuns(r, rule, start, from),
                        random.line + " " + rule + " " + IsoText(from));
    }
}

}  // namespace
}  // namespace NolSchedCtls::Testing
