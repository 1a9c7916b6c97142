// The nine boxes of excluded days, by index. A ticked box excludes; the record's property says "include".
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "NolSchedCtls/records/nol_sched_data.h"

namespace NolSchedCtls::inline v1 {

struct Exclusion {
    std::string_view sCaption;
    std::string CNolSchedData::*pInclude;
};

inline constexpr std::array exclusions = {
    Exclusion{"S&unday", &CNolSchedData::IncludeSundays},
    Exclusion{"&Monday", &CNolSchedData::IncludeMondays},
    Exclusion{"Tuesda&y", &CNolSchedData::IncludeTuesdays},
    Exclusion{"&Wednesday", &CNolSchedData::IncludeWednesdays},
    Exclusion{"Thurs&day", &CNolSchedData::IncludeThursdays},
    Exclusion{"Fr&iday", &CNolSchedData::IncludeFridays},
    Exclusion{"Sa&turday", &CNolSchedData::IncludeSaturdays},
    Exclusion{"Ho&lidays", &CNolSchedData::IncludeHolidays},
    Exclusion{"Day After H&olidays", &CNolSchedData::IncludeDayAfterHol},
};
inline constexpr std::size_t weekdayExclusions = 7;  // the first ones; the others are the holidays'

}  // namespace NolSchedCtls::inline v1
