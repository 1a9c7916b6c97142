// What the tab refuses: schedules that can never run.
#include <algorithm>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr const char* allExcluded = "All weekdays have been excluded.  Report group can never be run";
constexpr const char* endsBeforeStart = "Start Date is after End Date.  Report group can never be run";
constexpr const char* endIsPast = "End Date is in the past.  Report group can never be run";

}  // namespace

bool XNolScheduleTab::ValidateSchedule(std::string& sMessage) const {
    const auto refuse = [&sMessage](const char* refusal) {
        sMessage = refusal;
        return false;
    };
    if (std::all_of(cbExcludeDay.begin(), cbExcludeDay.begin() + weekdayExclusions,
                    [](const CheckBox& box) { return box.Value() == 1; }))
        return refuse(allExcluded);
    if (chkEndDate.Value() != 1) return true;
    if (SSDEndDate.DateValue() < SSDStartDate.DateValue()) return refuse(endsBeforeStart);
    if (SSDEndDate.DateValue() < DateOf(Clock().Now())) return refuse(endIsPast);
    return true;
}

bool XNolScheduleTab::IsTabValid(const std::string& sMsgBoxTitle) {
    if (!TellsLoaded(sMsgBoxTitle)) return false;
    if (ViewField* const field = RefusedField()) {
        ShowError(field->Refusal(), sMsgBoxTitle);
        TrySetFocus(*field);
        return false;
    }
    std::string sMessage;
    if (ValidateSchedule(sMessage)) return true;
    ShowError(sMessage, sMsgBoxTitle);
    TrySetFocus(SSDStartDate);
    return false;
}

}  // namespace NolSchedCtls::inline v1
