// The texts by which the schedule tab knows its modes and the outstanding entries of the day lists.
#pragma once

#include <string_view>

namespace NolSchedCtls::inline v1 {

inline constexpr std::string_view periodOnce = "Once";
inline constexpr std::string_view periodHourly = "Hourly";
inline constexpr std::string_view periodDaily = "Daily";
inline constexpr std::string_view periodWeekly = "Weekly";
inline constexpr std::string_view periodMonthly = "Monthly";

inline constexpr std::string_view dayOfMonth = "Day";  // a day of the month, not a weekday
inline constexpr std::string_view lastOfMonth = "Last";

}  // namespace NolSchedCtls::inline v1
