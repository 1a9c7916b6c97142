// The tab's creation, and what each field's event sets off.
#include <utility>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/toolkit/date_text.h"

namespace NolSchedCtls::inline v1 {

namespace {

template <std::size_t... index>
std::array<CheckBox, sizeof...(index)> ExcludeBoxes(Frame& frame, std::index_sequence<index...> /*all*/) {
    return {{CheckBox{frame, exclusions[index].sBox, exclusions[index].sCaption}...}};
}

}  // namespace

XNolScheduleTab::XNolScheduleTab()
    : cbExcludeDay(ExcludeBoxes(Frame3, std::make_index_sequence<exclusions.size()>())) {
    SetDesignSizes();
    InitControls();
    SSDEndDate.SetDefaultDate("Today");
    SSDStartDate.SetDefaultDate("Today");
    SSDEndDate.SetVisible(false);
    txtNoEndDate.SetVisible(true);
    fLoading = false;
}

void XNolScheduleTab::SetDesignSizes() {
    const std::pair<ViewField&, float> widths[] = {
        {lblRun, 615},       {cboPeriod, 1215},  {lblOnThe, 550},     {cboDayNum, 800},
        {lblOn, 265},        {cboDayName, 1335}, {lblEvery, 465},     {lblOfEvery, 615},
        {cboFrequency, 600}, {lblUnit, 650},     {lblStartTime, 855}, {dtpStartTime, 1215},
    };
    for (const auto& [field, width] : widths) field.SetWidth(width);
    cboPeriod.SetLeft(240);
    txtNoEndDate.SetText(" No End Date");
    txtNoEndDate.SetLocked(true);
}

void XNolScheduleTab::InitControls() {
    constexpr DateTime lastOffered = 49674.0;  // 12/31/2035, a year before what stands for no end
    LoadPeriodList();
    BeginDayLists();
    SSDStartDate.SetMaxDate(lastOffered);
    SSDEndDate.SetMaxDate(lastOffered);
}

void XNolScheduleTab::OnEvent(ViewField& field, const Event<>& event) {
    for (SSDateCombo* const date : {&SSDStartDate, &SSDEndDate})
        if (&event == &date->EditFormatRequest) return BeginDateEdit(*date);
    if (&field == &cboDayName) return DayListClicked(&XNolScheduleTab::RefreshDayNumList);
    if (&field == &cboDayNum) return DayListClicked(&XNolScheduleTab::RefreshDayNameList);
    if (&field == &txtNoEndDate || (&field == &chkEndDate && fLoading)) return;
    if (&field == &cboPeriod) SetCtlsOfPeriod();
    if (&field == &chkEndDate) SetEndDateCtls();
    NotifyChanged();
}

void XNolScheduleTab::BeginDateEdit(SSDateCombo& field) {
    field.SetDisplayFormat(DateSettings().EditDateFormat());
    field.SetFocus();
}

void XNolScheduleTab::OnFocusLeft(ViewField& field) {
    if (auto* const date = FieldAs<SSDateCombo>(field)) date->SetDisplayFormat(longDateFormat);
}

}  // namespace NolSchedCtls::inline v1
