// What the tab refuses: schedules that can never run.
#include <algorithm>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"

namespace NolSchedCtls {

bool XNolScheduleTab::ValidateSchedule(std::string& sMessage) const {
    const auto refuse = [&sMessage](const char* reason) {
        sMessage = std::string(reason) + ".  Report group can never be run";
        return false;
    };
    if (std::all_of(cbExcludeDay.begin(), cbExcludeDay.begin() + weekdayExclusions,
                    [](const CheckBox& box) { return box.Value() == 1; }))
        return refuse("All weekdays have been excluded");
    if (chkEndDate.Value() != 1) return true;
    if (SSDEndDate.DateValue() < SSDStartDate.DateValue()) return refuse("Start Date is after End Date");
    if (SSDEndDate.DateValue() < DateOf(Clock().Now())) return refuse("End Date is in the past");
    return true;
}

bool XNolScheduleTab::IsTabValid(const std::string& sMsgBoxTitle) {
    std::string sMessage;
    if (ValidateSchedule(sMessage)) return true;
    ShowError(sMessage, sMsgBoxTitle);
    SSDStartDate.SetFocus();
    return false;
}

}  // namespace NolSchedCtls
