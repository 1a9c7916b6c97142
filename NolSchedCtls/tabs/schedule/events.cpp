// The tab's creation, and what each field's event sets off.
#include <utility>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/toolkit/date_text.h"

namespace NolSchedCtls::inline v1 {

namespace {

CheckBox ExcludeBox(Frame& frame, std::size_t index) {
    return {frame, "cbExcludeDay(" + std::to_string(index) + ")", std::string(exclusions[index].sCaption)};
}

template <std::size_t... index>
std::array<CheckBox, sizeof...(index)> ExcludeBoxes(Frame& frame, std::index_sequence<index...> /*all*/) {
    return {{ExcludeBox(frame, index)...}};
}

}  // namespace

XNolScheduleTab::XNolScheduleTab()
    : cbExcludeDay(ExcludeBoxes(Frame3, std::make_index_sequence<exclusions.size()>())) {
    SetDesignSizes();
    ConnectFields();
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

void XNolScheduleTab::ConnectFields() {
    cboPeriod.Clicked.Connect([this] {
        SetCtlsOfPeriod();
        NotifyChanged();
    });
    cboFrequency.Clicked.Connect([this] { NotifyChanged(); });
    cboDayName.Clicked.Connect([this] { DayListClicked(&XNolScheduleTab::RefreshDayNumList); });
    cboDayNum.Clicked.Connect([this] { DayListClicked(&XNolScheduleTab::RefreshDayNameList); });
    chkEndDate.Clicked.Connect([this] {
        if (fLoading) return;
        SetEndDateCtls();
        NotifyChanged();
    });
    for (CheckBox& box : cbExcludeDay) box.Clicked.Connect([this] { NotifyChanged(); });
    dtpStartTime.Changed.Connect([this] { NotifyChanged(); });
    ConnectDateField(SSDStartDate);
    ConnectDateField(SSDEndDate);
    FocusLeft.Connect([this](ViewField& left) {
        auto* const date = FieldAs<SSDateCombo>(left);
        if (date != nullptr && !fLoading) date->SetDisplayFormat(longDateFormat);
    });
}

void XNolScheduleTab::ConnectDateField(SSDateCombo& field) {
    field.Changed.Connect([this] { NotifyChanged(); });
    field.Clicked.Connect([this] { NotifyChanged(); });
    field.EditFormatRequest.Connect([&field] {
        field.SetDisplayFormat(DateSettings().EditDateFormat());
        field.SetFocus();
    });
}

}  // namespace NolSchedCtls::inline v1
