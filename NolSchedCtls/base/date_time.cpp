#include "NolSchedCtls/base/date_time.h"

#include <chrono>
#include <cmath>
#include <utility>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr DateTime firstDay = -657434.0;  // 0100-01-01
constexpr DateTime lastDay = 2958465.0;   // 9999-12-31
constexpr std::chrono::sys_days dayZero = std::chrono::year{1899} / 12 / 30;

struct DayAndSecond {
    int day;
    int second;
};

DayAndSecond RoundToSecond(DateTime dateTime) {
    if (!(dateTime >= firstDay && dateTime < lastDay + 1))
        throw ValueError("The date-time " + std::to_string(dateTime) +
                         " lies outside the years 100 to 9999.");
    double day = std::floor(dateTime);
    double second = std::round((dateTime - day) * secondsPerDay);
    if (second >= secondsPerDay) {
        day += 1;
        second = 0;
        if (day > lastDay)
            throw ValueError("The date-time " + std::to_string(dateTime) + " rounds past the year 9999.");
    }
    return {static_cast<int>(day), static_cast<int>(second)};
}

std::string Named(std::initializer_list<int> numbers, std::string_view separator) {
    return Joined(
        numbers, [](int number) { return std::to_string(number); }, separator);
}

bool IsClockTime(const DateTimeParts& parts) {
    return parts.hour >= 0 && parts.hour < 24 && parts.minute >= 0 && parts.minute < 60 &&
           parts.second >= 0 && parts.second < 60;
}

bool TakeOneOf(std::string_view& text, std::string_view letters) {
    if (text.empty() || letters.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

bool TakeSecond(std::string_view& text, int& second) {
    if (!TakeOneOf(text, ":")) return true;
    if (!TakeDigits(text, 2, 2, second)) return false;
    if (TakeOneOf(text, "."))
        while (TakeOneOf(text, "0123456789")) continue;
    return true;
}

bool ReadIso(std::string_view text, DateTimeParts& parts) {
    const bool hasDate = TakeDigits(text, 4, 4, parts.year) && TakeOneOf(text, "-") &&
                         TakeDigits(text, 2, 2, parts.month) && TakeOneOf(text, "-") &&
                         TakeDigits(text, 2, 2, parts.day);
    if (!hasDate || text.empty()) return hasDate;
    return TakeOneOf(text, "T ") && TakeDigits(text, 2, 2, parts.hour) && TakeOneOf(text, ":") &&
           TakeDigits(text, 2, 2, parts.minute) && TakeSecond(text, parts.second) && text.empty();
}

}  // namespace

DateTime ComposeDateTime(const DateTimeParts& parts) {
    const std::chrono::year_month_day date{std::chrono::year{parts.year},
                                           std::chrono::month{static_cast<unsigned>(parts.month)},
                                           std::chrono::day{static_cast<unsigned>(parts.day)}};
    if (parts.year < 100 || parts.year > 9999 || !date.ok())
        throw ValueError("There is no day " + Named({parts.year, parts.month, parts.day}, "-") + ".");
    if (!IsClockTime(parts))
        throw ValueError("There is no time " + Named({parts.hour, parts.minute, parts.second}, ":") + ".");
    const auto days = (std::chrono::sys_days{date} - dayZero).count();
    const int seconds = (parts.hour * 60 + parts.minute) * 60 + parts.second;
    return static_cast<double>(days) + seconds / secondsPerDay;
}

DateTimeParts SplitDateTime(DateTime dateTime) {
    const auto [day, second] = RoundToSecond(dateTime);
    const std::chrono::year_month_day date{dayZero + std::chrono::days{day}};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            second / 3600,
            second / 60 % 60,
            second % 60};
}

DateTime DateOf(DateTime dateTime) { return RoundToSecond(dateTime).day; }

std::string IsoText(DateTime dateTime) {
    const DateTimeParts parts = SplitDateTime(dateTime);
    std::string text = "0000-00-00T00:00:00";
    const std::pair<int, std::size_t> numbersAndEnds[] = {{parts.year, 4},    {parts.month, 7},
                                                          {parts.day, 10},    {parts.hour, 13},
                                                          {parts.minute, 16}, {parts.second, 19}};
    for (auto [number, end] : numbersAndEnds)
        for (; number > 0; number /= 10) text[--end] = static_cast<char>('0' + number % 10);
    return text;
}

DateTime ParseIso(std::string_view text) {
    DateTimeParts parts;
    if (!ReadIso(text, parts))
        throw ValueError("The text " + Quoted(text) + " is no date-time of the form YYYY-MM-DDTHH:MM:SS.");
    return ComposeDateTime(parts);
}

}  // namespace NolSchedCtls::inline v1
