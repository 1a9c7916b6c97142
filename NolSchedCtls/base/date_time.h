// Date-times as day counts: day 0 is 1899-12-30, the fraction is the time of day. No time zone is applied.
#pragma once

#include <string>
#include <string_view>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

// Days since 1899-12-30. Good from year 100 to year 9999.
using DateTime = double;

struct DateTimeParts {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;

    bool operator==(const DateTimeParts&) const = default;
};

// Throws NolSchedError for a day or a time that no calendar or clock has.
NOLSCHED_API DateTime ComposeDateTime(const DateTimeParts& parts);

// To the nearest second, so that 9:05 never reads 9:04:59. Throws NolSchedError outside the years above.
NOLSCHED_API DateTimeParts SplitDateTime(DateTime dateTime);

// The day alone, rounded like SplitDateTime.
NOLSCHED_API DateTime DateOf(DateTime dateTime);

// "2026-03-02T09:05:00".
NOLSCHED_API std::string IsoText(DateTime dateTime);
inline std::string IsoDayText(DateTime dateTime) { return IsoText(dateTime).substr(0, 10); }

// Reads "YYYY-MM-DD", and after it "THH:MM" or "THH:MM:SS" (a blank may stand for the T; digits after the
// seconds' point are dropped). Throws NolSchedError for anything else.
NOLSCHED_API DateTime ParseIso(std::string_view text);

}  // namespace NolSchedCtls::inline v1
