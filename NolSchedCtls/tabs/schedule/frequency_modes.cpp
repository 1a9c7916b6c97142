// The five modes: which fields follow cboPeriod, where they stand, what the lists offer.
#include <algorithm>
#include <iterator>
#include <optional>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_texts.h"

namespace NolSchedCtls {

namespace {

// A bit for each field of the row, in its order.
enum RowBit : unsigned {
    onThe = 1U << 0U,
    dayNum = 1U << 1U,
    on = 1U << 2U,
    dayName = 1U << 3U,
    every = 1U << 4U,
    ofEvery = 1U << 5U,
    frequency = 1U << 6U,
    unit = 1U << 7U,
};

enum ModeIndex : std::size_t { once, hourly, daily, weekly, monthly };

constexpr std::size_t mostFrequencies = 52;

std::array<std::string, mostFrequencies> NumberTexts() {
    std::array<std::string, mostFrequencies> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = std::to_string(i + 1);
    return texts;
}

}  // namespace

struct XNolScheduleTab::FrequencyMode {
    std::string_view sPeriod;  // in cboPeriod
    std::string_view sKey;     // of that text in PeriodNames
    std::string_view sUnit;
    int nFrequencies;  // 1 to this; 0 leaves list and unit as they are
    unsigned nRow;     // the row bits of what the mode shows
    std::optional<DayNames> dayNames;
    bool fSetsEndDate;  // otherwise the box alone is enabled
    bool fDaysState;
    bool fHolState;
};

// In the order of cboPeriod's list.
constinit const XNolScheduleTab::FrequencyMode XNolScheduleTab::frequencyModes[5] = {
    {periodOnce, "O", "", 0, 0, {}, true, false, false},
    {periodHourly, "H", "Period(s)", 24, every | frequency | unit, {}, true, true, true},
    {periodDaily, "D", " day(s)", 7, every | frequency | unit, {}, false, true, true},
    {periodWeekly, "W", " week(s)", mostFrequencies, on | dayName | every | frequency | unit,
     DayNames::Weekdays, true, false, true},
    {periodMonthly, "A", " month(s)", 12, onThe | dayNum | dayName | ofEvery | frequency | unit,
     DayNames::Full, true, true, true},
};

void XNolScheduleTab::SetCtlsOnce() { SetCtls(frequencyModes[once]); }

void XNolScheduleTab::SetCtlsHourly() { SetCtls(frequencyModes[hourly]); }

void XNolScheduleTab::SetCtlsDaily() { SetCtls(frequencyModes[daily]); }

void XNolScheduleTab::SetCtlsWeekly() { SetCtls(frequencyModes[weekly]); }

void XNolScheduleTab::SetCtlsMonthly() { SetCtls(frequencyModes[monthly]); }

void XNolScheduleTab::SetCtlsOfPeriod() {
    const auto* mode = std::find_if(std::begin(frequencyModes), std::end(frequencyModes),
                                    [this](const auto& m) { return m.sPeriod == cboPeriod.Text(); });
    if (mode != std::end(frequencyModes)) SetCtls(*mode);
}

void XNolScheduleTab::SetCtls(const FrequencyMode& mode) {
    for (std::size_t place = 0; place < row.size(); ++place)
        row[place]->SetVisible((mode.nRow >> place & 1U) != 0);
    if (mode.nFrequencies > 0) lblUnit.SetCaption(std::string(mode.sUnit));
    if (mode.fSetsEndDate)
        SetEndDateCtls();
    else
        chkEndDate.SetEnabled(true);
    EnableExcludeCtls(mode.fDaysState, mode.fHolState);
    PackRow();
    if (mode.dayNames) {
        LoadDayNameList(*mode.dayNames);
        cboDayName.SetListIndex(0);
    }
    if (mode.nFrequencies > 0) LoadFrequencyList(mode.nFrequencies);
}

// Flush after cboPeriod; what is hidden stays where it was.
void XNolScheduleTab::PackRow() {
    const ViewField* before = &cboPeriod;
    for (ViewField* field : row) {
        if (!field->Visible()) continue;
        field->SetLeft(before->Left() + before->Width());
        before = field;
    }
}

void XNolScheduleTab::LoadPeriodList() {
    for (const FrequencyMode& mode : frequencyModes)
        cboPeriod.AddItem(CodeTables().PeriodNames().Item(mode.sKey));
    cboPeriod.SetListIndex(hourly);
}

void XNolScheduleTab::LoadFrequencyList(int nMax) {
    static const auto numbers = NumberTexts();
    cboFrequency.Clear();
    cboFrequency.AddItems({numbers.data(), static_cast<std::size_t>(nMax)});
    cboFrequency.SetListIndex(0);
}

}  // namespace NolSchedCtls
