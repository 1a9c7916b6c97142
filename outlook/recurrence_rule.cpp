#include "outlook/recurrence_rule.h"

#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr std::array<std::string_view, 7> weekdayCodes = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

std::string IncludedWeekdays(const ExcludedDays& excluded) {
    std::vector<std::string_view> included;
    for (std::size_t day = 0; day < weekdayCodes.size(); ++day)
        if (!excluded[day]) included.push_back(weekdayCodes[day]);
    return included.size() == weekdayCodes.size() ? "" : ";BYDAY=" + Joined(included, {}, ",");
}

std::string Repeating(std::string_view unit, int count) {
    return "FREQ=" + std::string(unit) + (count == 1 ? "" : ";INTERVAL=" + std::to_string(count));
}

// "-1" stands for the last.
std::string Number(int number) { return std::to_string(number == 0 ? -1 : number); }

std::string RuleWithoutEnd(const Recurrence& recurrence) {
    const int count = recurrence.frequency;
    const std::string weekday(weekdayCodes[recurrence.weekday.c_encoding()]);
    const std::string included = IncludedWeekdays(recurrence.excluded);
    switch (recurrence.code) {
        case RecurrenceCode::Hourly:
            return (count % 60 == 0 ? Repeating("HOURLY", count / 60) : Repeating("MINUTELY", count)) +
                   included;
        case RecurrenceCode::Weekly:
            return Repeating("WEEKLY", count) + ";BYDAY=" + weekday + ";WKST=SU";
        case RecurrenceCode::MonthDay:
            return Repeating("MONTHLY", count) + ";BYMONTHDAY=" + Number(recurrence.number) + included;
        case RecurrenceCode::MonthWeekday:
            return Repeating("MONTHLY", count) + ";BYDAY=" + Number(recurrence.number) + weekday;
        default:
            return Repeating("DAILY", count) + included;
    }
}

std::string EndText(Moment last) {
    if (last == latestMoment) return "";
    const std::chrono::year_month_day date{DayOf(last)};
    const std::chrono::hh_mm_ss time(last - DayOf(last));
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), ";UNTIL=%04d%02u%02uT%02d%02d%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text.data();
}

// Where BYDAY names the weekday of the runs, it cannot exclude that day as well.
bool IsExcludedAsAWhole(const Recurrence& recurrence) {
    if (recurrence.HasWeekday()) return recurrence.excluded[recurrence.weekday.c_encoding()];
    return AreAllWeekdays(recurrence.excluded);
}

}  // namespace

std::string RecurrenceRule(const CNolSchedData& record, const OutlookSettings& settings) {
    if (record.IsOverride()) return "";
    try {
        const Recurrence recurrence = ReadRecurrence(record, settings);
        if (recurrence.code == RecurrenceCode::Once || IsExcludedAsAWhole(recurrence)) return "";
        return RuleWithoutEnd(recurrence) + EndText(recurrence.last);
    } catch (const NolSchedError&) {
        return "";
    }
}

}  // namespace NolSchedCtls::inline v1
