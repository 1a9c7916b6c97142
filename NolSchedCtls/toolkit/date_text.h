// Dates as text: how the date fields and the regional settings write them, and how they are read back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls {

// "Monday, March 02, 2026".
inline constexpr std::string_view longDateFormat = "DDDD, MMMM DD, YYYY";

// Writes the date by a pattern of DDDD (weekday), MMMM (month's name), MM, M, DD, D and YYYY; anything else
// stands for itself. Names are English. Throws NolSchedError for another run of these letters.
std::string DateText(DateTime date, std::string_view pattern);

// Throws NolSchedError for a pattern that DateText cannot write by.
void CheckDatePattern(std::string_view pattern);

// The regional short form: "3/2/2026" with the month first.
std::string ShortDateText(DateTime date, IDateSettings& settings = DateSettings());

// Reads the short form, the long form or the edit format, alone or with a time after a blank: "9:5",
// "21:05:30" or "9:05:00 PM". Names are read in any case. Nothing for any other text, a day that no calendar
// has, or a weekday that is not the date's.
std::optional<DateTime> ReadDateText(std::string_view text, IDateSettings& settings = DateSettings());

}  // namespace NolSchedCtls
