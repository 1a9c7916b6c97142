#include "outlook/description.h"

#include <array>
#include <cstdio>
#include <string_view>
#include <vector>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls::inline v1 {

namespace {

using namespace std::chrono;

constexpr std::array<std::string_view, 7> weekdayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                          "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string WeekdayName(std::size_t dayOfWeek) { return std::string(weekdayNames[dayOfWeek]); }

std::string NumberText(int number) {
    constexpr std::array<std::string_view, 4> endings = {"th", "st", "nd", "rd"};
    if (number == 0) return "last";
    const bool isTeen = number / 10 == 1;
    const int digit = number % 10;
    return std::to_string(number).append(endings[isTeen || digit > 3 ? 0 : static_cast<std::size_t>(digit)]);
}

std::string DateText(Moment moment) {
    const year_month_day date{DayOf(moment)};
    return std::string(monthNames[static_cast<unsigned>(date.month()) - 1]) + ' ' +
           std::to_string(static_cast<unsigned>(date.day())) + ", " +
           std::to_string(static_cast<int>(date.year()));
}

// "09:05", with seconds only where there are some.
std::string TimeText(Moment moment) {
    const hh_mm_ss time(moment - DayOf(moment));
    std::array<char, 16> text{};
    const bool hasSeconds = time.seconds() != seconds::zero();
    std::snprintf(text.data(), text.size(), hasSeconds ? "%02d:%02d:%02d" : "%02d:%02d",
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text.data();
}

// "Every hour", "Every 2 weeks".
std::string EveryText(int count, const std::string& unit) {
    return count == 1 ? "Every " + unit : "Every " + std::to_string(count) + ' ' + unit + 's';
}

std::string Listed(const std::vector<std::string>& parts) {
    std::string listed = parts.front();
    for (std::size_t place = 1; place < parts.size(); ++place)
        listed += (place + 1 == parts.size() ? " and " : ", ") + parts[place];
    return listed;
}

std::string ExcludedNames(ExcludedDays excluded, std::string_view weekdayEnding) {
    std::vector<std::string> names;
    for (std::size_t fromMonday = 1; fromMonday <= weekdayNames.size(); ++fromMonday) {
        const std::size_t day = fromMonday % weekdayNames.size();
        if (excluded[day]) names.push_back(WeekdayName(day).append(weekdayEnding));
    }
    if (excluded[excludedHolidays]) names.emplace_back("holidays");
    if (excluded[excludedDaysAfter]) names.emplace_back("days after holidays");
    return Listed(names);
}

// Where all runs lie on one weekday, the others are not worth a word.
ExcludedDays WorthAWord(const Recurrence& recurrence) {
    ExcludedDays excluded = recurrence.excluded;
    for (unsigned day = 0; day < weekdayNames.size(); ++day)
        if (recurrence.HasWeekday() && day != recurrence.weekday.c_encoding()) excluded.reset(day);
    return excluded;
}

std::string ExceptionsText(const Recurrence& recurrence) {
    const ExcludedDays told = WorthAWord(recurrence);
    return told.any() ? ExcludedNames(told, "s") : "";
}

// All but the exclusions and the end.
std::string RunsText(const Recurrence& recurrence) {
    const int count = recurrence.frequency;
    const std::string at = " at " + TimeText(recurrence.first);
    const std::string start = DateText(recurrence.first) + at;
    switch (recurrence.code) {
        case RecurrenceCode::Once:
            return "Once on " + start;
        case RecurrenceCode::Hourly:
            return (count % 60 == 0 ? EveryText(count / 60, "hour") : EveryText(count, "minute")) + " from " +
                   start;
        case RecurrenceCode::Daily:
            return (count == 1 ? "Daily" : EveryText(count, "day")) + at;
        case RecurrenceCode::Weekly:
            return (count == 1 ? "Weekly" : EveryText(count, "week")) + " on " + DayText(recurrence) + at;
        default:
            return "Monthly on the " + DayText(recurrence) +
                   (count == 1 ? "" : " of every " + std::to_string(count) + " months") + at;
    }
}

}  // namespace

std::string ExceptionsText(const CNolSchedData& record, const OutlookSettings& settings) {
    if (record.IsOverride()) return {};
    try {
        return ExceptionsText(ReadRecurrence(record, settings));
    } catch (const NolSchedError&) {
        return {};
    }
}

std::string DayText(const Recurrence& recurrence) {
    std::string weekdayName = WeekdayName(recurrence.weekday.c_encoding());
    switch (recurrence.code) {
        case RecurrenceCode::Weekly:
            return weekdayName;
        case RecurrenceCode::MonthWeekday:
            return NumberText(recurrence.number) + ' ' + weekdayName;
        default:
            return NumberText(recurrence.number) + (recurrence.number == 0 ? " day" : "");
    }
}

std::string ExcludedText(ExcludedDays excluded) {
    if (AreAllWeekdays(excluded)) return "every day of the week is excluded";
    const bool isOneWeekday = excluded.count() == 1 && excluded.to_ulong() < 1UL << excludedHolidays;
    return ExcludedNames(excluded, "") + (isOneWeekday ? " is excluded" : " are excluded");
}

std::string DescribeSchedule(const CNolSchedData& record, const OutlookSettings& settings) {
    if (record.IsOverride()) return "Immediate";
    try {
        const Recurrence recurrence = ReadRecurrence(record, settings);
        std::string text = RunsText(recurrence);
        if (const std::string days = ExceptionsText(recurrence); !days.empty()) text += ", not on " + days;
        const bool hasEnd = recurrence.last != latestMoment && recurrence.code != RecurrenceCode::Once;
        return hasEnd ? text + ", until " + DateText(recurrence.last) : text;
    } catch (const NolSchedError& error) {
        return std::string("Cannot be shown: ") + error.what();
    }
}

}  // namespace NolSchedCtls::inline v1
