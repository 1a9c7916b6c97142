// Entries as lines: "A 2 0/0/6 YYYYYYYNY 2026-01-01T22:30 2027-12-31" is the code, the frequency, day of the
// month, week and weekday, what is included from Sundays to days after holidays, the first and the final
// date-time.
#pragma once

#include <array>
#include <sstream>
#include <string>

#include "outlook/schedule.h"

namespace NolSchedCtls::Testing {

inline constexpr std::array includes = {
    &CNolSchedData::IncludeSundays,    &CNolSchedData::IncludeMondays,   &CNolSchedData::IncludeTuesdays,
    &CNolSchedData::IncludeWednesdays, &CNolSchedData::IncludeThursdays, &CNolSchedData::IncludeFridays,
    &CNolSchedData::IncludeSaturdays,  &CNolSchedData::IncludeHolidays,  &CNolSchedData::IncludeDayAfterHol};

struct Entry {
    explicit Entry(const std::string& line) {
        std::istringstream words(line);
        std::string included, first, final;
        char slash = 0;
        words >> record.Periodicity >> record.Frequency >> record.WhichMonthDate >> slash >>
            record.WhichWeek >> slash >> record.WhichWeekday >> included >> first >> final;
        for (std::size_t i = 0; i < includes.size(); ++i) record.*includes[i] = included.substr(i, 1);
        record.FirstDateTime = ParseIso(first);
        record.FinalDateTime = ParseIso(final);
        record.ScheduleActive = "Y";
        record.RunMode = "S";
    }
    CNolSchedData record;
};

}  // namespace NolSchedCtls::Testing
