// Entries as lines: see entries.txt.
#pragma once

#include <array>
#include <sstream>
#include <string>
#include <vector>

#include "NolSchedCtls/base/text.h"
#include "outlook/schedule.h"

namespace NolSchedCtls::Testing {

inline constexpr std::array includes = {
    &CNolSchedData::IncludeSundays,    &CNolSchedData::IncludeMondays,   &CNolSchedData::IncludeTuesdays,
    &CNolSchedData::IncludeWednesdays, &CNolSchedData::IncludeThursdays, &CNolSchedData::IncludeFridays,
    &CNolSchedData::IncludeSaturdays,  &CNolSchedData::IncludeHolidays,  &CNolSchedData::IncludeDayAfterHol};

struct Entry {
    explicit Entry(const std::string& lineA) : line(lineA) {
        std::istringstream words(line);
        std::string included, first, final, setting;
        char slash = 0;
        words >> record.Periodicity >> record.Frequency >> record.WhichMonthDate >> slash >>
            record.WhichWeek >> slash >> record.WhichWeekday >> included >> first >> final >> setting;
        for (std::size_t i = 0; i < includes.size(); ++i) record.*includes[i] = included.substr(i, 1);
        record.FirstDateTime = ParseIso(first);
        record.FinalDateTime = ParseIso(final);
        record.ScheduleActive = setting == "paused" ? "y" : "Y";
        record.RunMode = setting == "immediate" ? "I" : "S";
        settings.periodMinutes = ParseWhole(setting).value_or(60);
    }
    std::string line;
    CNolSchedData record;
    OutlookSettings settings;
};

inline std::vector<DateTime> Taken(const RunRange& runs, std::size_t most) {
    std::vector<DateTime> taken;
    for (auto run = runs.begin(); run != runs.end() && taken.size() < most; ++run) taken.push_back(*run);
    return taken;
}

}  // namespace NolSchedCtls::Testing
