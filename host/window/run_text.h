// Runs as people read them, by the regional settings. All for the thread of the windows.
#pragma once

#include <QString>

#include "NolSchedCtls/base/date_time.h"

namespace NolSchedCtls {

inline constexpr DateTime second = 1.0 / 86400;

// "11/27/2026 10:30 PM", as the other dates of a list.
QString ShortRunText(DateTime run);
// "Fri Nov 27 10:30 PM"; with its year where that is not at hand.
QString RunText(DateTime run, DateTime now);
// "10:30 PM".
QString TimeText(DateTime moment);
// "Fri Nov 27".
QString DayText(DateTime day);
// "Dec 31, 2027".
QString DateText(DateTime day);
// Where a week begins in a calendar.
Qt::DayOfWeek FirstDayOfWeek();
// "1 run", "1,200 runs".
QString CountText(int runs);

}  // namespace NolSchedCtls
