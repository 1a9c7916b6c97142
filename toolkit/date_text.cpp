#include "toolkit/date_text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>

#include "records/services/collection.h"

namespace NolSchedCtls {

namespace {

constexpr std::array<std::string_view, 7> weekdayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                          "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> monthNames = {"January",   "February", "March",    "April",
                                                         "May",       "June",     "July",     "August",
                                                         "September", "October",  "November", "December"};
constexpr std::array<std::string_view, 3> shortFormats = {"M/D/YYYY", "D/M/YYYY", "YYYY/M/D"};

struct NumberPiece {
    std::string_view letters;
    int DateTimeParts::*pPart;
    std::size_t fewestDigits;  // when read
    std::size_t mostDigits;
};

// As many digits are written as there are letters.
constexpr std::array numberPieces = {
    NumberPiece{"M", &DateTimeParts::month, 1, 2}, NumberPiece{"MM", &DateTimeParts::month, 1, 2},
    NumberPiece{"D", &DateTimeParts::day, 1, 2}, NumberPiece{"DD", &DateTimeParts::day, 1, 2},
    NumberPiece{"YYYY", &DateTimeParts::year, 4, 4}};

const NumberPiece* FindNumberPiece(std::string_view piece) {
    const auto* found = std::find_if(numberPieces.begin(), numberPieces.end(),
                                     [piece](const NumberPiece& number) { return number.letters == piece; });
    return found == numberPieces.end() ? nullptr : found;
}

bool IsPatternLetter(char letter) { return letter == 'D' || letter == 'M' || letter == 'Y'; }

// Takes a run of one pattern letter, or one other character, off the front of the pattern.
std::string_view TakePiece(std::string_view& pattern) {
    const char first = pattern.front();
    const std::size_t length =
        IsPatternLetter(first) ? std::min(pattern.find_first_not_of(first), pattern.size()) : 1;
    const std::string_view piece = pattern.substr(0, length);
    pattern.remove_prefix(length);
    return piece;
}

std::chrono::year_month_day CalendarDay(const DateTimeParts& parts) {
    return {std::chrono::year{parts.year}, std::chrono::month{static_cast<unsigned>(parts.month)},
            std::chrono::day{static_cast<unsigned>(parts.day)}};
}

std::string_view WeekdayName(const DateTimeParts& parts) {
    return weekdayNames.at(std::chrono::weekday{std::chrono::sys_days{CalendarDay(parts)}}.c_encoding());
}

std::string Padded(int number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string PieceText(std::string_view piece, const DateTimeParts& parts) {
    if (piece == "DDDD") return std::string(WeekdayName(parts));
    if (piece == "MMMM") return std::string(monthNames.at(static_cast<std::size_t>(parts.month) - 1));
    if (const auto* number = FindNumberPiece(piece)) return Padded(parts.*number->pPart, piece.size());
    if (IsPatternLetter(piece.front()))
        throw NolSchedError("A date format has no part " + Quoted(piece) +
                            "; it has DDDD, MMMM, MM, M, DD, D and YYYY.");
    return std::string(piece);
}

std::string_view ShortFormat(IDateSettings& settings) {
    return shortFormats.at(static_cast<std::size_t>(settings.DateOrder()));
}

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool TakeNumber(std::string_view& text, std::size_t fewest, std::size_t most, int& number) {
    std::size_t count = 0;
    number = 0;
    while (count < most && count < text.size() && text[count] >= '0' && text[count] <= '9')
        number = number * 10 + (text[count++] - '0');
    text.remove_prefix(count);
    return count >= fewest;
}

bool TakeText(std::string_view& text, std::string_view expected) {
    if (!EqualKeys(text.substr(0, expected.size()), expected)) return false;
    text.remove_prefix(expected.size());
    return true;
}

// Takes one of the names and gives its place among them, or the number of names for none.
std::size_t TakeName(std::string_view& text, const auto& names) {
    return static_cast<std::size_t>(
        std::find_if(names.begin(), names.end(),
                     [&text](std::string_view name) { return TakeText(text, name); }) -
        names.begin());
}

struct DateReading {
    DateTimeParts parts;
    std::string_view weekday;  // empty if the text names none
};

bool TakePieceText(std::string_view& text, std::string_view piece, DateReading& reading) {
    if (piece == "DDDD") {
        const std::size_t place = TakeName(text, weekdayNames);
        if (place < weekdayNames.size()) reading.weekday = weekdayNames[place];
        return place < weekdayNames.size();
    }
    if (piece == "MMMM") {
        const std::size_t place = TakeName(text, monthNames);
        reading.parts.month = static_cast<int>(place) + 1;
        return place < monthNames.size();
    }
    if (const auto* number = FindNumberPiece(piece))
        return TakeNumber(text, number->fewestDigits, number->mostDigits, reading.parts.*number->pPart);
    return TakeText(text, piece);
}

bool TakeDate(std::string_view& text, std::string_view pattern, DateReading& reading) {
    while (!pattern.empty())
        if (!TakePieceText(text, TakePiece(pattern), reading)) return false;
    const auto& parts = reading.parts;
    return parts.year >= 100 && CalendarDay(parts).ok() &&
           (reading.weekday.empty() || reading.weekday == WeekdayName(parts));
}

bool TakeHalfOfDay(std::string_view& text, int& hour) {
    text = WithoutBlanks(text);
    if (text.empty()) return hour < 24;
    const bool isAfternoon = TakeText(text, "PM");
    if ((!isAfternoon && !TakeText(text, "AM")) || hour < 1 || hour > 12) return false;
    hour = hour % 12 + (isAfternoon ? 12 : 0);
    return true;
}

// The time behind a date; none at all is midnight.
bool ReadTime(std::string_view text, DateTimeParts& parts) {
    parts.hour = parts.minute = parts.second = 0;
    if (text.empty()) return true;
    if (text.front() != ' ') return false;
    text = WithoutBlanks(text);
    if (!TakeNumber(text, 1, 2, parts.hour) || !TakeText(text, ":") || !TakeNumber(text, 1, 2, parts.minute))
        return false;
    if (TakeText(text, ":") && !TakeNumber(text, 1, 2, parts.second)) return false;
    return TakeHalfOfDay(text, parts.hour) && text.empty() && parts.minute < 60 && parts.second < 60;
}

std::optional<DateTime> ReadByPattern(std::string_view text, std::string_view pattern) {
    DateReading reading;
    if (!TakeDate(text, pattern, reading) || !ReadTime(text, reading.parts)) return {};
    return ComposeDateTime(reading.parts);
}

}  // namespace

std::string DateText(DateTime date, std::string_view pattern) {
    const DateTimeParts parts = SplitDateTime(date);
    std::string text;
    while (!pattern.empty()) text += PieceText(TakePiece(pattern), parts);
    return text;
}

std::string ShortDateText(DateTime date, IDateSettings& settings) {
    return DateText(date, ShortFormat(settings));
}

std::string GeneralDateText(DateTime dateTime, IDateSettings& settings) {
    const DateTimeParts parts = SplitDateTime(dateTime);
    std::string text = ShortDateText(dateTime, settings);
    if (parts.hour == 0 && parts.minute == 0 && parts.second == 0) return text;
    const int hour = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
    return text + ' ' + std::to_string(hour) + ':' + Padded(parts.minute, 2) + ':' + Padded(parts.second, 2) +
           (parts.hour < 12 ? " AM" : " PM");
}

std::optional<DateTime> ReadDateText(std::string_view text, IDateSettings& settings) {
    text = WithoutBlanks(text);
    if (const auto read = ReadByPattern(text, ShortFormat(settings))) return read;
    if (const auto read = ReadByPattern(text, longDateFormat)) return read;
    return ReadByPattern(text, settings.EditDateFormat());
}

}  // namespace NolSchedCtls
