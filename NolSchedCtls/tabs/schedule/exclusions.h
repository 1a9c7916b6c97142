// The nine boxes of excluded days, by index. A ticked box excludes; the record's property says "include".
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "NolSchedCtls/records/nol_sched_data.h"

namespace NolSchedCtls::inline v1 {

struct Exclusion {
    std::string_view sBox;
    std::string_view sCaption;
    std::string CNolSchedData::*pInclude;
};

inline constexpr std::array exclusions = {
    Exclusion{"cbExcludeDay(0)", "S&unday", &CNolSchedData::IncludeSundays},
    Exclusion{"cbExcludeDay(1)", "&Monday", &CNolSchedData::IncludeMondays},
    Exclusion{"cbExcludeDay(2)", "Tuesda&y", &CNolSchedData::IncludeTuesdays},
    Exclusion{"cbExcludeDay(3)", "&Wednesday", &CNolSchedData::IncludeWednesdays},
    Exclusion{"cbExcludeDay(4)", "Thurs&day", &CNolSchedData::IncludeThursdays},
    Exclusion{"cbExcludeDay(5)", "Fr&iday", &CNolSchedData::IncludeFridays},
    Exclusion{"cbExcludeDay(6)", "Sa&turday", &CNolSchedData::IncludeSaturdays},
    Exclusion{"cbExcludeDay(7)", "Ho&lidays", &CNolSchedData::IncludeHolidays},
    Exclusion{"cbExcludeDay(8)", "Day After H&olidays", &CNolSchedData::IncludeDayAfterHol},
};
inline constexpr std::size_t weekdayExclusions = 7;  // the first ones; the others are the holidays'

}  // namespace NolSchedCtls::inline v1
