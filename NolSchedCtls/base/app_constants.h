// The constants of the client that more than one class quotes.
#pragma once

#include <string_view>

#include "NolSchedCtls/base/date_time.h"

namespace NolSchedCtls::inline v1::MAppConstants {

inline constexpr std::string_view homStudy = "HOM Study";
inline constexpr std::string_view plmStudy = "PLM Study";
inline constexpr std::string_view rfcStudy = "RF Call Trace Study";
inline constexpr std::string_view vcsStudy = "VCSA Study";

inline constexpr std::string_view nolGroup = "NOL Group";

// 12/31/2036: an entry whose last day this is has no end.
inline constexpr DateTime NoEndDate = 50040.0;

inline constexpr int stopSign = 16;
inline constexpr int exclamationMark = 48;

// Settings of a user.
inline constexpr std::string_view autoPurgeRequired = "AutoPurge Required";
inline constexpr std::string_view maxPurgeInterval = "Max Purge Interval";

}  // namespace NolSchedCtls::inline v1::MAppConstants
