// The recurrence and the exclusions between record and view.
#include <charconv>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/load_step.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_texts.h"

namespace NolSchedCtls {

namespace {

struct PeriodCode {
    std::string_view sCode;
    std::string_view sText;
};

constexpr std::string_view codeOfDay = "M";
constexpr std::string_view codeOfWeekday = "A";
constexpr std::array periodCodes = {
    PeriodCode{"O", periodOnce},          PeriodCode{"H", periodHourly},
    PeriodCode{"D", periodDaily},         PeriodCode{"W", periodWeekly},
    PeriodCode{codeOfDay, periodMonthly}, PeriodCode{codeOfWeekday, periodMonthly},
};

constexpr int lastDayIndex = 28;
constexpr int lastWeekIndex = 4;

std::string_view PeriodCodeToText(std::string_view sCode) {
    for (const PeriodCode& row : periodCodes)
        if (row.sCode == sCode) return row.sText;
    return {};
}

// Two codes share "Monthly"; whether a day or a weekday is chosen tells them apart.
std::string_view PeriodTextToCode(std::string_view sText, bool fDay) {
    for (const PeriodCode& row : periodCodes)
        if (row.sText == sText && (row.sCode != codeOfDay || fDay)) return row.sCode;
    return {};
}

// 0 stands for the last entry. The number after the highest would select that entry too, and be stored as 0.
int IndexOfNumber(std::int32_t nNumber, int nLastIndex) {
    if (nNumber < 0 || nNumber > nLastIndex)
        throw NolSchedError("it is 1 to " + std::to_string(nLastIndex) + ", or 0 for the last.");
    return nNumber == 0 ? nLastIndex : nNumber - 1;
}

}  // namespace

CNolSchedData& XNolScheduleTab::Record() const {
    if (!cSchedData) throw NolSchedError("The schedule tab has no record; LoadData comes first.");
    return *cSchedData;
}

void XNolScheduleTab::LoadData(std::shared_ptr<CNolSchedData> v, const std::string& /*sName*/,
                               std::shared_ptr<CPaviseNotify> dtN) {
    cpvnNotify = std::move(dtN);
    cSchedData = std::move(v);
    SetCtlsFromData();
}

void XNolScheduleTab::SaveData() { SetDataFromCtls(); }

// Each step works on the lists that the step before has shaped.
void XNolScheduleTab::SetCtlsFromData() {
    const CNolSchedData& data = Record();
    SetCtlsDates();
    ShowProperty("Periodicity", data.Periodicity,
                 [&] { cboPeriod.SetText(PeriodCodeToText(data.Periodicity)); });
    ShowProperty("Frequency", data.Frequency, [this] { ShowFrequency(); });
    ShowProperty("WhichWeekday", data.WhichWeekday, [this] { cboDayName.SetText(GetDayNameText()); });
    const bool isWeek = data.Periodicity == codeOfWeekday;
    ShowProperty(isWeek ? "WhichWeek" : "WhichMonthDate", isWeek ? data.WhichWeek : data.WhichMonthDate,
                 [this] { cboDayNum.SetListIndex(GetDayNumIndex()); });
    ShowExclusions();
}

// A number picked in another mode can lie beyond a new tab's hidden list, which then stays as it is.
void XNolScheduleTab::ShowFrequency() {
    const std::string sFrequency = std::to_string(Record().Frequency);
    if (cboPeriod.Text() == periodOnce && !cboFrequency.Offers(sFrequency)) return;
    cboFrequency.SetText(sFrequency);
}

void XNolScheduleTab::ShowExclusions() {
    for (std::size_t index = 0; index < exclusions.size(); ++index)
        cbExcludeDay[index].SetValue(Record().*exclusions[index].pInclude == "Y" ? 0 : 1);
}

std::string XNolScheduleTab::GetDayNameText() const {
    if (Record().Periodicity == codeOfDay) return std::string(dayOfMonth);
    return DayConversion().DayNameOfNumber(Record().WhichWeekday);
}

int XNolScheduleTab::GetDayNumIndex() const {
    const CNolSchedData& data = Record();
    if (data.Periodicity == codeOfDay) return IndexOfNumber(data.WhichMonthDate, lastDayIndex);
    if (data.Periodicity == codeOfWeekday) return IndexOfNumber(data.WhichWeek, lastWeekIndex);
    return 0;
}

void XNolScheduleTab::SetDataFromCtls() const {
    CNolSchedData& data = Record();
    data.FirstDateTime = GetFirstDateTime();
    data.FinalDateTime = GetFinalDateTime();
    data.Periodicity = PeriodTextToCode(cboPeriod.Text(), cboDayName.Text() == dayOfMonth);
    data.Frequency = GetFrequency();
    data.WhichMonthDate = GetWhichMonthDate();
    data.WhichWeek = GetWhichWeek();
    data.WhichWeekday = GetWhichWeekday();
    for (std::size_t index = 0; index < exclusions.size(); ++index)
        data.*exclusions[index].pInclude = cbExcludeDay[index].Value() == 0 ? "Y" : "N";
}

std::int32_t XNolScheduleTab::GetFrequency() const {
    const std::string& text = cboFrequency.Text();
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw NolSchedError("The field cboFrequency holds " + Quoted(text) + ", which is no number.");
    return number;
}

bool XNolScheduleTab::IsMonthlyOn(bool fDay) const {
    return cboPeriod.Text() == periodMonthly && (cboDayName.Text() == dayOfMonth) == fDay;
}

std::int32_t XNolScheduleTab::GetWhichMonthDate() const {
    if (!IsMonthlyOn(true) || cboDayNum.Text() == lastOfMonth) return 0;
    return cboDayNum.ListIndex() + 1;
}

std::int32_t XNolScheduleTab::GetWhichWeek() const {
    if (!IsMonthlyOn(false) || cboDayNum.ListIndex() >= lastWeekIndex) return 0;
    return cboDayNum.ListIndex() + 1;
}

std::int32_t XNolScheduleTab::GetWhichWeekday() const {
    const bool hasDayName = cboPeriod.Text() == periodWeekly || cboPeriod.Text() == periodMonthly;
    if (!hasDayName || cboDayName.Text() == dayOfMonth) return 1;
    return DayConversion().DayNumberOfName(cboDayName.Text());
}

}  // namespace NolSchedCtls
