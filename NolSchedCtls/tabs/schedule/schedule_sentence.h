// The recurrence as a line of text.
#pragma once

#include <string>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

class XNolScheduleTab;

// What the tab's row shows from cboPeriod on: "Monthly on the 2nd Monday of every 3 month(s)", "Once".
NOLSCHED_API std::string ScheduleSentence(const XNolScheduleTab& tab);

}  // namespace NolSchedCtls::inline v1
