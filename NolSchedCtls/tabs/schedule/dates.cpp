// The entry's duration and time of day between record and view.
#include <cmath>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/tabs/schedule/load_step.h"

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_texts.h"
#include "NolSchedCtls/toolkit/date_text.h"

namespace NolSchedCtls::inline v1 {

namespace {

// A refused text stands for no day, also where no user reaches it.
DateTime DayOf(const SSDateCombo& field) {
    if (!field.Refusal().empty()) throw NolSchedError(field.Refusal());
    return field.DateValue();
}

DateTime AtTime(DateTime day, int hour, int minute, int second) {
    DateTimeParts parts = SplitDateTime(day);
    parts.hour = hour;
    parts.minute = minute;
    parts.second = second;
    return ComposeDateTime(parts);
}

}  // namespace

void XNolScheduleTab::SetCtlsDates() {
    const CNolSchedData& data = Record();
    ShowProperty("FirstDateTime", data.FirstDateTime, [this] { ShowStart(); });
    ShowProperty("FinalDateTime", data.FinalDateTime, [this] { ShowEnd(); });
    SSDStartDate.SetDisplayFormat(longDateFormat);
    SSDEndDate.SetDisplayFormat(longDateFormat);
}

void XNolScheduleTab::ShowStart() {
    const DateTime first = Record().FirstDateTime;
    SSDStartDate.SetDateValue(first);
    const DateTimeParts parts = SplitDateTime(first);
    dtpStartTime.SetHour(parts.hour);
    dtpStartTime.SetMinute(parts.minute);
}

void XNolScheduleTab::ShowEnd() {
    const DateTime lastDay = DateOf(Record().FinalDateTime);
    const bool isOnNoEnd = std::floor(Record().FinalDateTime) == MAppConstants::NoEndDate;  // rounds past it
    const bool hasEnd = lastDay != MAppConstants::NoEndDate && !isOnNoEnd;
    if (hasEnd) SSDEndDate.SetDateValue(lastDay);
    chkEndDate.SetValue(hasEnd ? 1 : 0);
    if (!hasEnd) SSDEndDate.SetDateValue(Clock().Now());
    SSDEndDate.SetVisible(hasEnd);
    txtNoEndDate.SetVisible(!hasEnd);
}

void XNolScheduleTab::SetEndDateCtls() {
    chkEndDate.SetEnabled(cboPeriod.Text() != periodOnce);
    chkEndDate.SetValue(chkEndDate.Enabled() ? chkEndDate.Value() : 0);
    SSDEndDate.SetVisible(chkEndDate.Value() == 1 && chkEndDate.Enabled());
    SSDEndDate.SetEnabled(chkEndDate.Enabled());
    txtNoEndDate.SetVisible(!SSDEndDate.Visible());
    txtNoEndDate.SetEnabled(chkEndDate.Enabled());
}

DateTime XNolScheduleTab::GetFirstDateTime() const {
    return AtTime(DayOf(SSDStartDate), dtpStartTime.Hour(), dtpStartTime.Minute(), 0);
}

DateTime XNolScheduleTab::GetFinalDateTime() const {
    const DateTime day = chkEndDate.Value() == 0 ? MAppConstants::NoEndDate : DayOf(SSDEndDate);
    if (cboPeriod.Text() == periodHourly) return AtTime(day, 23, 59, 59);
    return AtTime(day, dtpStartTime.Hour(), dtpStartTime.Minute(), 0);
}

}  // namespace NolSchedCtls::inline v1
