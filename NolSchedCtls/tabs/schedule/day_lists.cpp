// The two day lists, which refill each other, the boxes that go with them, and the fields of the end date.
#include <algorithm>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_texts.h"

namespace NolSchedCtls {

namespace {

constexpr std::size_t lastPosition = 29;  // of MonthDayNames

// The numbers that a weekday can have, and "5th"; the others leave "Day" as the only name.
constexpr std::array<std::string_view, 6> lowNumbers = {"1st", "2nd", "3rd", "4th", "5th", lastOfMonth};

bool IsLowNumber(std::string_view text) {
    return std::find(lowNumbers.begin(), lowNumbers.end(), text) != lowNumbers.end();
}

void SelectAgain(DropDownList& list, const std::string& remembered) {
    try {
        list.SetText(remembered);
    } catch (const std::exception&) {
        list.SetListIndex(0);  // the new entries lack it
    }
}

}  // namespace

void XNolScheduleTab::LoadDayNameList(DayNames nFill) {
    const auto& names = CodeTables().DayNames();
    const std::size_t first = nFill == DayNames::Weekdays ? 2 : 1;
    const std::size_t last = nFill == DayNames::DayOnly ? 1 : names.Count();
    cboDayName.Clear();
    for (std::size_t position = first; position <= last; ++position)
        cboDayName.AddItem(names.Item(position).Item("UIVal"));
}

void XNolScheduleTab::LoadDayNumList(DayNumbers nFill) {
    const auto& names = CodeTables().MonthDayNames();
    const std::size_t last = nFill == DayNumbers::Long ? 28 : 4;
    cboDayNum.Clear();
    for (std::size_t position = 1; position <= last; ++position) cboDayNum.AddItem(names.Item(position));
    cboDayNum.AddItem(names.Item(lastPosition));
}

void XNolScheduleTab::RefreshDayNumList() {
    if (cboPeriod.Text() != periodWeekly && cboPeriod.Text() != periodMonthly) return;
    const std::string remembered = cboDayNum.Text();
    const bool isDay = cboDayName.Text() == dayOfMonth;
    LoadDayNumList(isDay ? DayNumbers::Long : DayNumbers::Short);
    EnableExcludeCtls(isDay, true);
    SelectAgain(cboDayNum, remembered);
}

void XNolScheduleTab::RefreshDayNameList() {
    const std::string remembered = cboDayName.Text();
    LoadDayNameList(IsLowNumber(cboDayNum.Text()) ? DayNames::Full : DayNames::DayOnly);
    SelectAgain(cboDayName, remembered);
}

void XNolScheduleTab::EnableExcludeCtls(const bool& fDaysState, const bool& fHolState) {
    for (std::size_t index = 0; index < cbExcludeDay.size(); ++index)
        cbExcludeDay[index].SetEnabled(index < weekdayExclusions ? fDaysState : fHolState);
}

void XNolScheduleTab::SetEndDateCtls() {
    chkEndDate.SetEnabled(cboPeriod.Text() != periodOnce);
    chkEndDate.SetValue(chkEndDate.Enabled() ? chkEndDate.Value() : 0);
    SSDEndDate.SetVisible(chkEndDate.Value() == 1 && chkEndDate.Enabled());
    SSDEndDate.SetEnabled(chkEndDate.Enabled());
    txtNoEndDate.SetVisible(!SSDEndDate.Visible());
    txtNoEndDate.SetEnabled(chkEndDate.Enabled());
}

}  // namespace NolSchedCtls
