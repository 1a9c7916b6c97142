// The five modes: which fields follow cboPeriod, where they stand, what the lists offer.
#include <algorithm>
#include <array>
#include <optional>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_texts.h"

namespace NolSchedCtls::inline v1 {

namespace {

// Which fields of the row a mode shows.
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

struct RowField {
    RowBit bit;
    ViewField* field;
};

// What may follow cboPeriod, in the order of the sentence.
auto RowOf(XNolScheduleTab& tab) {
    return std::to_array<RowField>({
        {onThe, &tab.lblOnThe},
        {dayNum, &tab.cboDayNum},
        {on, &tab.lblOn},
        {dayName, &tab.cboDayName},
        {every, &tab.lblEvery},
        {ofEvery, &tab.lblOfEvery},
        {frequency, &tab.cboFrequency},
        {unit, &tab.lblUnit},
    });
}

enum ModeIndex : std::size_t { once, hourly, daily, weekly, monthly };

constexpr std::size_t mostFrequencies = 52;

std::array<std::string, mostFrequencies> NumberTexts() {
    std::array<std::string, mostFrequencies> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = std::to_string(i + 1);
    return texts;
}

}  // namespace

// What a mode does to the fields of the end date. Daily leaves the date itself as the mode before left it:
// after Once it stays disabled until the box is clicked.
enum class XNolScheduleTab::EndDate { Refreshed, BoxAlone };

struct XNolScheduleTab::FrequencyMode {
    std::string_view sPeriod;  // in cboPeriod
    std::string_view sKey;     // of that text in PeriodNames
    std::string_view sUnit = {};
    int nFrequencies = 0;  // 1 to this; 0 leaves list and unit as they are
    unsigned nRow = 0;     // RowBits
    std::optional<DayNames> dayNames = {};
    EndDate endDate = EndDate::Refreshed;
    bool fDaysState = true;
    bool fHolState = true;
};

// In the order of cboPeriod's list.
std::span<const XNolScheduleTab::FrequencyMode> XNolScheduleTab::FrequencyModes() {
    static constexpr std::array modes = {
        FrequencyMode{.sPeriod = periodOnce, .sKey = "O", .fDaysState = false, .fHolState = false},
        FrequencyMode{.sPeriod = periodHourly,
                      .sKey = "H",
                      .sUnit = "Period(s)",
                      .nFrequencies = 24,
                      .nRow = every | frequency | unit},
        FrequencyMode{.sPeriod = periodDaily,
                      .sKey = "D",
                      .sUnit = " day(s)",
                      .nFrequencies = 7,
                      .nRow = every | frequency | unit,
                      .endDate = EndDate::BoxAlone},
        FrequencyMode{.sPeriod = periodWeekly,
                      .sKey = "W",
                      .sUnit = " week(s)",
                      .nFrequencies = mostFrequencies,
                      .nRow = on | dayName | every | frequency | unit,
                      .dayNames = DayNames::Weekdays,
                      .fDaysState = false},
        FrequencyMode{.sPeriod = periodMonthly,
                      .sKey = "A",
                      .sUnit = " month(s)",
                      .nFrequencies = 12,
                      .nRow = onThe | dayNum | dayName | ofEvery | frequency | unit,
                      .dayNames = DayNames::Full},
    };
    return modes;
}

void XNolScheduleTab::SetCtlsOnce() { SetCtls(FrequencyModes()[once]); }
void XNolScheduleTab::SetCtlsHourly() { SetCtls(FrequencyModes()[hourly]); }
void XNolScheduleTab::SetCtlsDaily() { SetCtls(FrequencyModes()[daily]); }
void XNolScheduleTab::SetCtlsWeekly() { SetCtls(FrequencyModes()[weekly]); }
void XNolScheduleTab::SetCtlsMonthly() { SetCtls(FrequencyModes()[monthly]); }

void XNolScheduleTab::SetCtlsOfPeriod() {
    const auto modes = FrequencyModes();
    const auto mode = std::find_if(modes.begin(), modes.end(), [this](const FrequencyMode& candidate) {
        return candidate.sPeriod == cboPeriod.Text();
    });
    if (mode != modes.end()) SetCtls(*mode);
}

void XNolScheduleTab::SetCtls(const FrequencyMode& mode) {
    sShaped = cboPeriod.Text();
    try {
        Shape(mode);
    } catch (...) {
        sShaped.clear();
        throw;
    }
}

void XNolScheduleTab::Shape(const FrequencyMode& mode) {
    for (const RowField& place : RowOf(*this)) place.field->SetVisible((mode.nRow & place.bit) != 0);
    if (mode.nFrequencies > 0) lblUnit.SetCaption(std::string(mode.sUnit));
    if (mode.endDate == EndDate::Refreshed)
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
    for (const RowField& place : RowOf(*this)) {
        if (!place.field->Visible()) continue;
        place.field->SetLeft(before->Left() + before->Width());
        before = place.field;
    }
}

void XNolScheduleTab::LoadPeriodList() {
    const auto& names = CodeTables().PeriodNames();
    std::vector<std::string_view> items;
    items.reserve(names.Count());
    for (const FrequencyMode& mode : FrequencyModes()) items.emplace_back(names.Item(mode.sKey));
    cboPeriod.AddItems(items);
    cboPeriod.SetListIndex(hourly);
}

void XNolScheduleTab::LoadFrequencyList(int nMax) {
    static const auto numbers = NumberTexts();
    cboFrequency.Clear();
    cboFrequency.AddItems(std::span(numbers).first(static_cast<std::size_t>(nMax)));
    cboFrequency.SetListIndex(0);
}

}  // namespace NolSchedCtls::inline v1
