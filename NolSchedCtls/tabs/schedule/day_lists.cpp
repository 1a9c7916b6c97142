// The two day lists, which refill each other, and the boxes that go with them.
#include <algorithm>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_texts.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr std::size_t lastPosition = 29;  // of MonthDayNames

// The numbers that offer the weekdays beside "Day". A weekday has no "5th": who picks it there and then a
// weekday gets the short number list, which lacks it, and SelectAgain falls back on "1st".
bool OffersWeekdays(std::string_view sNumber) {
    constexpr std::array<std::string_view, 6> numbers = {"1st", "2nd", "3rd", "4th", "5th", lastOfMonth};
    return std::find(numbers.begin(), numbers.end(), sNumber) != numbers.end();
}

void SelectAgain(DropDownList& list, const std::string& remembered) {
    if (list.Offers(remembered))
        list.SetText(remembered);
    else
        list.SetListIndex(0);
}

// What a list offers now. The texts are its own: who hears that it is empty may replace the services.
void Refill(DropDownList& list, std::vector<std::string> items) {
    list.Clear();
    list.AddItems(std::move(items));
}

}  // namespace

// Neither refreshes the other.
void XNolScheduleTab::BeginDayLists() {
    LoadDayNumList(DayNumbers::Long);
    LoadDayNameList(DayNames::Weekdays);
    for (DropDownList* const list : {&cboDayName, &cboDayNum}) {
        fDaySyncToggle = true;
        list->SetListIndex(0);
    }
    fDaySyncToggle = false;
}

void XNolScheduleTab::LoadDayNameList(DayNames nFill) {
    const auto& names = CodeTables().DayNames();
    const std::size_t first = nFill == DayNames::Weekdays ? 2 : 1;
    const std::size_t last = nFill == DayNames::DayOnly ? 1 : names.Count();
    std::vector<std::string> items;
    items.reserve(last);
    for (std::size_t position = first; position <= last; ++position)
        items.push_back(names.Item(position).Item("UIVal"));
    Refill(cboDayName, std::move(items));
}

void XNolScheduleTab::LoadDayNumList(DayNumbers nFill) {
    const auto& names = CodeTables().MonthDayNames();
    const std::size_t last = nFill == DayNumbers::Long ? 28 : 4;
    std::vector<std::string> items;
    items.reserve(last + 1);
    for (std::size_t position = 1; position <= last; ++position) items.push_back(names.Item(position));
    items.push_back(names.Item(lastPosition));
    Refill(cboDayNum, std::move(items));
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
    LoadDayNameList(OffersWeekdays(cboDayNum.Text()) ? DayNames::Full : DayNames::DayOnly);
    SelectAgain(cboDayName, remembered);
}

void XNolScheduleTab::EnableExcludeCtls(const bool& fDaysState, const bool& fHolState) {
    for (std::size_t index = 0; index < cbExcludeDay.size(); ++index)
        cbExcludeDay[index].SetEnabled(index < weekdayExclusions ? fDaysState : fHolState);
}

// A parity, not a lock. As a rule a click turns the toggle on and refreshes the other list, whose own click
// turns it off again and ends there. But the click of a hidden name list refreshes nothing (see
// RefreshDayNumList), no second click follows, and the toggle stays on: the next click of either list then
// only turns it off. So an entry that is loaded as "Daily" with another weekday than the first leaves the
// number list as it is when the user goes to "Weekly".
void XNolScheduleTab::DayListClicked(void (XNolScheduleTab::*pRefresh)()) {
    if (fLoading) return;
    fDaySyncToggle = !fDaySyncToggle;
    if (!fDaySyncToggle) return;
    try {
        (this->*pRefresh)();
    } catch (...) {
        fDaySyncToggle = false;  // the next click refreshes again
        sShaped.clear();
        throw;
    }
    NotifyChanged();
}

}  // namespace NolSchedCtls::inline v1
