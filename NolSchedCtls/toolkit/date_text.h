// Dates and times as text: how the date fields and the regional settings write them, and how they are read,
// also as people type them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1 {

// "Monday, March 02, 2026".
inline constexpr std::string_view longDateFormat = "DDDD, MMMM DD, YYYY";

// Writes the date by a pattern of DDDD (weekday), MMMM (month's name), MM, M, DD, D and YYYY; anything else
// stands for itself. Names are English. Throws NolSchedError for another run of these letters.
std::string DateText(DateTime date, std::string_view pattern);

// Throws NolSchedError for a pattern that DateText cannot write by.
void CheckDatePattern(std::string_view pattern);

// That, and for one that lacks the day, the month or the year; none at all is whole.
void CheckWholeDatePattern(std::string_view pattern);

// The regional short form: "3/2/2026" with the month first.
std::string ShortDateText(DateTime date, IDateSettings& settings = DateSettings());

// Reads the short form (also with "-" or "." for each "/"), the long form, the edit format, "2026-12-24",
// "Dec 24, 2026", "Dec 24 2026" and "24 Dec 2026", alone or with a time after a blank: "9:5", "21:05:30" or
// "9:05:00 PM". Names are read in any case, whole or from three letters on. Nothing for any other text, a day
// that no calendar has, or a weekday that is not the date's.
std::optional<DateTime> ReadDateText(std::string_view text, IDateSettings& settings = DateSettings());

// What a field shows, and the pattern that it shows it by; empty for the regional short form.
struct ShownDate {
    DateTime date;
    std::string_view pattern;
};

// By the shown pattern first, then as above. What the text leaves out stays as the shown date has it; so
// "24 Dec" and "Dec 24" are read, too.
std::optional<DateTime> ReadDateText(std::string_view text, const ShownDate& shown,
                                     IDateSettings& settings = DateSettings());

struct TimeOfDay {
    int hour;
    int minute;
};

// Reads "22:30", "22.30", "22h30", "2230", "930" and "7", as they are or before "a", "am", "p" or "pm" in any
// case, with seconds of :00 at most; and "noon" and "midnight". Nothing for any other text.
std::optional<TimeOfDay> ReadTimeText(std::string_view text);

}  // namespace NolSchedCtls::inline v1
