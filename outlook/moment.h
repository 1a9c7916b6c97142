// Date-times as the outlook counts them: whole seconds on a calendar without time zones.
#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>

#include "NolSchedCtls/base/date_time.h"

namespace NolSchedCtls::inline v1 {

using Day = std::chrono::local_days;
using Moment = std::chrono::local_seconds;

inline constexpr Day dayZero{std::chrono::year{1899} / 12 / 30};
inline constexpr Moment earliestMoment = Day{std::chrono::year{1900} / 1 / 1};
inline constexpr Moment latestMoment = Day{std::chrono::year{9999} / 12 / 31} + std::chrono::seconds{86399};
inline constexpr Moment noMoment = (Moment::max)();  // after every other

inline Day DayOf(Moment moment) { return std::chrono::floor<std::chrono::days>(moment); }

inline DateTime DateTimeOf(Moment moment) {
    const Day day = DayOf(moment);
    return static_cast<double>((day - dayZero).count()) + static_cast<double>((moment - day).count()) / 86400;
}

// To the nearest second, as SplitDateTime rounds. What lies before 1900 or after 9999 gives the nearest
// moment within, and so does what is no number.
inline Moment MomentOf(DateTime dateTime) {
    constexpr DateTime earliest = 2;
    constexpr DateTime latest = 2958466;
    const DateTime within = dateTime > earliest ? (std::min)(dateTime, latest) : earliest;
    const double day = std::floor(within);
    const double second = std::round((within - day) * 86400);
    return (std::min)(latestMoment, dayZero + std::chrono::days{static_cast<int>(day)} +
                                        std::chrono::seconds{static_cast<int>(second)});
}

}  // namespace NolSchedCtls::inline v1
