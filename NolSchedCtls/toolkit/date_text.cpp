#include "NolSchedCtls/toolkit/date_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>

#include "NolSchedCtls/base/collection.h"
#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr std::array<std::string_view, 7> weekdayNames = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                          "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> monthNames = {"January",   "February", "March",    "April",
                                                         "May",       "June",     "July",     "August",
                                                         "September", "October",  "November", "December"};

struct NumberPiece {
    char letter;
    std::size_t length;  // as many digits are written
    int DateTimeParts::*pPart;
    std::size_t fewestDigits;  // when read
    std::size_t mostDigits;
};

const NumberPiece* FindNumberPiece(std::string_view piece) {
    static constexpr std::array numberPieces = {
        NumberPiece{'M', 1, &DateTimeParts::month, 1, 2}, NumberPiece{'M', 2, &DateTimeParts::month, 1, 2},
        NumberPiece{'D', 1, &DateTimeParts::day, 1, 2}, NumberPiece{'D', 2, &DateTimeParts::day, 1, 2},
        NumberPiece{'Y', 4, &DateTimeParts::year, 4, 4}};
    for (const NumberPiece& number : numberPieces)
        if (number.letter == piece.front() && number.length == piece.size()) return &number;
    return nullptr;
}

bool IsName(std::string_view piece) { return piece == "DDDD" || piece == "MMMM"; }
bool IsPatternLetter(char letter) { return letter == 'D' || letter == 'M' || letter == 'Y'; }

// Takes a run of one character off the front of the pattern.
std::string_view TakePiece(std::string_view& pattern) {
    std::size_t length = 1;
    while (length < pattern.size() && pattern[length] == pattern.front()) ++length;
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

void AppendNumber(std::string& text, int number, std::size_t digits) {
    std::array<char, 11> written{};
    const char* const end = std::to_chars(written.begin(), written.end(), number).ptr;
    const auto length = static_cast<std::size_t>(end - written.data());
    text.append(digits - std::min(digits, length), '0').append(written.data(), length);
}

void AppendPiece(std::string& text, std::string_view piece, const DateTimeParts& parts) {
    if (piece == "DDDD") {
        text += WeekdayName(parts);
        return;
    }
    if (piece == "MMMM") {
        text += monthNames.at(static_cast<std::size_t>(parts.month) - 1);
        return;
    }
    if (const auto* number = FindNumberPiece(piece))
        return AppendNumber(text, parts.*number->pPart, piece.size());
    CheckDatePattern(piece);
    text += piece;
}

std::string_view ShortFormat(IDateSettings& settings) {
    constexpr std::array<std::string_view, 3> shortFormats = {"M/D/YYYY", "D/M/YYYY", "YYYY/M/D"};
    return shortFormats.at(static_cast<std::size_t>(settings.DateOrder()));
}

bool TakeText(std::string_view& text, std::string_view expected) {
    if (!EqualKeys(text.substr(0, expected.size()), expected)) return false;
    text.remove_prefix(expected.size());
    return true;
}

bool TakeOneOf(std::string_view& text, std::string_view letters) {
    if (text.empty() || letters.find(text.front()) == std::string_view::npos) return false;
    text.remove_prefix(1);
    return true;
}

bool IsLetter(char letter) { return FoldedLetter(letter) >= 'a' && FoldedLetter(letter) <= 'z'; }

// The whole name, or a word that begins it.
bool TakeNameOrItsBegin(std::string_view& text, std::string_view name) {
    constexpr std::size_t fewestLetters = 3;
    if (TakeText(text, name)) return true;
    const auto* const end = std::find_if_not(text.begin(), text.end(), IsLetter);
    const auto length = static_cast<std::size_t>(end - text.begin());
    return length >= fewestLetters && TakeText(text, name.substr(0, length));
}

// Takes one of the names and gives its place among them, or the number of names for none.
std::size_t TakeName(std::string_view& text, const auto& names) {
    return static_cast<std::size_t>(
        std::find_if(names.begin(), names.end(),
                     [&text](std::string_view name) { return TakeNameOrItsBegin(text, name); }) -
        names.begin());
}

// To begin with the parts of no day, or of the day whose parts stand where the text has none.
struct DateReading {
    DateTimeParts parts{.year = 0, .month = 0, .day = 0};
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
        return TakeDigits(text, number->fewestDigits, number->mostDigits, reading.parts.*number->pPart);
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
    text = Trimmed(text);
    if (text.empty()) return hour < 24;
    const bool isAfternoon = TakeText(text, "P");
    if ((!isAfternoon && !TakeText(text, "A")) || hour < 1 || hour > 12) return false;
    if (!TakeText(text, "M")) TakeText(text, ".M.");
    hour = hour % 12 + (isAfternoon ? 12 : 0);
    return true;
}

// The time after a date; none at all is midnight.
bool ReadTime(std::string_view text, DateTimeParts& parts) {
    parts.hour = parts.minute = parts.second = 0;
    if (text.empty()) return true;
    if (text.front() != ' ') return false;
    text = Trimmed(text);
    if (!TakeDigits(text, 1, 2, parts.hour) || !TakeText(text, ":") || !TakeDigits(text, 1, 2, parts.minute))
        return false;
    if (TakeText(text, ":") && !TakeDigits(text, 1, 2, parts.second)) return false;
    return TakeHalfOfDay(text, parts.hour) && text.empty() && parts.minute < 60 && parts.second < 60;
}

std::optional<DateTime> ReadByPattern(std::string_view text, std::string_view pattern, DateReading reading) {
    if (!TakeDate(text, pattern, reading) || !ReadTime(text, reading.parts)) return {};
    return ComposeDateTime(reading.parts);
}

std::optional<DateTime> ReadByPatterns(std::string_view text, const auto& patterns,
                                       const DateReading& without) {
    for (const std::string_view pattern : patterns)
        if (const auto read = ReadByPattern(text, pattern, without)) return read;
    return {};
}

// The parts of `without` stand where a text has none.
std::optional<DateTime> ReadAnyForm(std::string_view text, IDateSettings& settings,
                                    const DateReading& without) {
    static constexpr std::array<std::string_view, 6> typedForms = {
        "YYYY-M-D", "MMMM D, YYYY", "MMMM D YYYY", "D MMMM YYYY", "MMMM D", "D MMMM"};
    const std::string_view shortForm = ShortFormat(settings);
    const std::string edited = settings.EditDateFormat();
    if (const auto read =
            ReadByPatterns(text, std::array<std::string_view, 3>{shortForm, longDateFormat, edited}, without))
        return read;
    for (const char separator : {'-', '.'}) {
        std::string pattern(shortForm);
        std::replace(pattern.begin(), pattern.end(), '/', separator);
        if (const auto read = ReadByPattern(text, pattern, without)) return read;
    }
    return ReadByPatterns(text, typedForms, without);
}

// "22:30", "22.30", "22h30", "2230" or "22".
bool TakeHourAndMinute(std::string_view& text, DateTimeParts& parts) {
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const bool isRun = digits == 3 || digits == 4;
    return TakeDigits(text, 1, isRun ? digits - 2 : 2, parts.hour) &&
           ((!isRun && !TakeOneOf(text, ":.hH")) || TakeDigits(text, 2, 2, parts.minute));
}

}  // namespace

std::string DateText(DateTime date, std::string_view pattern) {
    const DateTimeParts parts = SplitDateTime(date);
    std::string text;
    while (!pattern.empty()) AppendPiece(text, TakePiece(pattern), parts);
    return text;
}

void CheckDatePattern(std::string_view pattern) {
    while (!pattern.empty()) {
        const std::string_view piece = TakePiece(pattern);
        if (!IsPatternLetter(piece.front()) || IsName(piece) || FindNumberPiece(piece) != nullptr) continue;
        throw NolSchedError("A date format has no part " + Quoted(piece) +
                            "; it has DDDD, MMMM, MM, M, DD, D and YYYY.");
    }
}

void CheckWholeDatePattern(std::string_view pattern) {
    CheckDatePattern(pattern);
    if (pattern.empty()) return;
    std::string there;
    for (std::string_view left = pattern; !left.empty();)
        if (const auto piece = TakePiece(left); piece != "DDDD") there += piece.front();
    constexpr std::array parts = {std::pair{'D', "day"}, std::pair{'M', "month"}, std::pair{'Y', "year"}};
    for (const auto& [letter, part] : parts)
        if (there.find(letter) == std::string::npos)
            throw NolSchedError("The date format " + Quoted(pattern) + " lacks the " + part + ".");
}

std::string ShortDateText(DateTime date, IDateSettings& settings) {
    return DateText(date, ShortFormat(settings));
}

std::optional<DateTime> ReadDateText(std::string_view text, IDateSettings& settings) {
    return ReadAnyForm(Trimmed(text), settings, {});
}

std::optional<DateTime> ReadDateText(std::string_view text, const ShownDate& shown, IDateSettings& settings) {
    text = Trimmed(text);
    const DateReading without{.parts = SplitDateTime(shown.date), .weekday = {}};
    if (!shown.pattern.empty())
        if (const auto read = ReadByPattern(text, shown.pattern, without)) return read;
    return ReadAnyForm(text, settings, without);
}

std::optional<TimeOfDay> ReadTimeText(std::string_view text) {
    text = Trimmed(text);
    if (EqualKeys(text, "noon")) return TimeOfDay{12, 0};
    if (EqualKeys(text, "midnight")) return TimeOfDay{0, 0};
    DateTimeParts parts;
    if (!TakeHourAndMinute(text, parts)) return {};
    TakeText(text, ":00");
    if (!TakeHalfOfDay(text, parts.hour) || !text.empty() || parts.minute > 59) return {};
    return TimeOfDay{parts.hour, parts.minute};
}

}  // namespace NolSchedCtls::inline v1
