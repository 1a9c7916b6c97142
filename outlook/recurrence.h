// A record's recurrence, read once and checked.
#pragma once

#include <bitset>
#include <chrono>
#include <cstdint>
#include <string>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "outlook/moment.h"

namespace NolSchedCtls::inline v1 {

// The host's settings that say what a record leaves open.
struct OutlookSettings {
    std::int32_t periodMinutes = 60;  // "Period Minutes": the length of an hourly entry's period, 1 to 1440
    std::string periodText = {};      // what the host holds in its place, if that is no number

    bool operator==(const OutlookSettings&) const = default;
};

enum class RecurrenceCode : char {
    Once = 'O',
    Hourly = 'H',
    Daily = 'D',
    Weekly = 'W',
    MonthDay = 'M',
    MonthWeekday = 'A'
};

// The kinds of days on which an entry may not run: the weekdays from Sunday on, holidays, the days after
// them.
inline constexpr std::size_t excludedHolidays = 7;
inline constexpr std::size_t excludedDaysAfter = 8;
using ExcludedDays = std::bitset<9>;

inline bool AreAllWeekdays(const ExcludedDays& days) {
    constexpr unsigned long weekdays = 0x7F;
    return (days.to_ulong() & weekdays) == weekdays;
}

struct Recurrence {
    RecurrenceCode code = RecurrenceCode::Once;  // which is like Daily, but ends with its first run
    int frequency = 1;                           // every how many minutes (Hourly), days, weeks or months
    int number = 0;                              // which day of the month or which weekday of it; 0: the last
    std::chrono::weekday weekday{};
    ExcludedDays excluded;
    Moment first{};
    Moment last{};  // no run lies after it; latestMoment: there is no end

    // Whether all runs lie on one weekday by rule.
    bool HasWeekday() const { return code == RecurrenceCode::Weekly || code == RecurrenceCode::MonthWeekday; }
};

// Reads what the record's code uses, and nothing else. Throws NolSchedError that names the property, its
// value and what it can be.
Recurrence ReadRecurrence(const CNolSchedData& record, const OutlookSettings& settings);

}  // namespace NolSchedCtls::inline v1
