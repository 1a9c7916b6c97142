// The recurrence and the exclusions between record and view.
#include <algorithm>
#include <array>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/tabs/schedule/load_step.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_texts.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr int lastDayIndex = 28;
constexpr int lastWeekIndex = 4;

// A code with what it shows in cboPeriod, and the property whose number it shows in cboDayNum.
struct PeriodCode {
    std::string_view sCode;
    std::string_view sText;
    std::string_view sNumber = "WhichMonthDate";
    std::int32_t CNolSchedData::*pNumber = &CNolSchedData::WhichMonthDate;
    int nLastIndex =
        0;  // of the entry that stands for 0; a code without one shows the first, whatever the number
};

constexpr std::string_view codeOfDay = "M";
constexpr std::array periodCodes = {
    PeriodCode{"O", periodOnce},
    PeriodCode{"H", periodHourly},
    PeriodCode{"D", periodDaily},
    PeriodCode{"W", periodWeekly},
    PeriodCode{codeOfDay, periodMonthly, "WhichMonthDate", &CNolSchedData::WhichMonthDate, lastDayIndex},
    PeriodCode{"A", periodMonthly, "WhichWeek", &CNolSchedData::WhichWeek, lastWeekIndex},
};

// A row without texts for a code that is none.
PeriodCode RowOfCode(std::string_view sCode) {
    const auto* const row = std::find_if(periodCodes.begin(), periodCodes.end(),
                                         [&](const PeriodCode& known) { return known.sCode == sCode; });
    return row == periodCodes.end() ? PeriodCode{} : *row;
}

std::string_view PeriodCodeToText(std::string_view sCode) { return RowOfCode(sCode).sText; }

// Two codes share "Monthly"; whether a day or a weekday is chosen tells them apart.
std::string_view PeriodTextToCode(std::string_view sText, bool fDay) {
    for (const PeriodCode& row : periodCodes)
        if (row.sText == sText && (row.sCode != codeOfDay || fDay)) return row.sCode;
    return {};
}

// 0 stands for the last entry. The number after the highest would select that entry too, and be stored as 0.
int IndexOfNumber(std::int32_t nNumber, int nLastIndex) {
    if (nNumber < 0 || nNumber > nLastIndex)
        throw ValueError("it is 1 to " + std::to_string(nLastIndex) + ", or 0 for the last.");
    return nNumber == 0 ? nLastIndex : nNumber - 1;
}

}  // namespace

void XNolScheduleTab::LoadData(std::shared_ptr<CNolSchedData> v, const std::string& /*sName*/,
                               std::shared_ptr<CPaviseNotify> dtN) {
    Keep(std::move(v), std::move(dtN));
    SetCtlsFromData();
    Loaded();
}

// A refused text stands for no value.
void XNolScheduleTab::SaveData() {
    LoadedRecord();  // before anything is asked of the view
    if (const ViewField* const field = RefusedField()) throw NolSchedError(field->Refusal());
    SetDataFromCtls();
}

// Each step works on the lists that the step before has shaped.
void XNolScheduleTab::SetCtlsFromData() {
    const CNolSchedData& data = Record();
    SetCtlsDates();
    ShowProperty("Periodicity", data.Periodicity, [&] { ShowPeriod(); });
    ShowProperty("Frequency", data.Frequency, [this] { ShowFrequency(); });
    ShowProperty("WhichWeekday", data.WhichWeekday, [this] { cboDayName.SetText(GetDayNameText()); });
    const PeriodCode code = RowOfCode(data.Periodicity);
    ShowProperty(code.sNumber, data.*code.pNumber, [this] { cboDayNum.SetListIndex(GetDayNumIndex()); });
    ShowExclusions();
}

void XNolScheduleTab::ShowPeriod() {
    const std::string_view sText = PeriodCodeToText(Record().Periodicity);
    const auto codeOf = [](const PeriodCode& row) { return Quoted(row.sCode); };
    if (sText.empty()) throw ValueError("it is one of " + Joined(periodCodes, codeOf) + ".");
    if (!IsShaped()) BeginDayLists();  // a failure has cut the last change short
    cboPeriod.SetText(sText);
    if (!IsShaped()) SetCtlsOfPeriod();
}

// A number picked in another mode can lie beyond a new tab's hidden list, which then stays as it is.
void XNolScheduleTab::ShowFrequency() {
    const std::string sFrequency = std::to_string(Record().Frequency);
    if (!cboFrequency.Offers(sFrequency)) {
        if (cboPeriod.Text() == periodOnce) return;
        throw ValueError("it is 1 to " + std::to_string(cboFrequency.Entries().size()) +
                         " where Periodicity is " + Quoted(Record().Periodicity) + ".");
    }
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
    const PeriodCode code = RowOfCode(Record().Periodicity);
    return code.nLastIndex == 0 ? 0 : IndexOfNumber(Record().*code.pNumber, code.nLastIndex);
}

// What fails fails before the first property is written.
void XNolScheduleTab::SetDataFromCtls() const {
    CheckShape();
    const DateTime dFirst = GetFirstDateTime();
    const DateTime dFinal = GetFinalDateTime();
    const std::int32_t nFrequency = GetFrequency();
    const std::int32_t nWeekday = GetWhichWeekday();
    CNolSchedData& data = Record();
    data.FirstDateTime = dFirst;
    data.FinalDateTime = dFinal;
    data.Periodicity = PeriodTextToCode(cboPeriod.Text(), cboDayName.Text() == dayOfMonth);
    data.Frequency = nFrequency;
    data.WhichMonthDate = GetWhichMonthDate();
    data.WhichWeek = GetWhichWeek();
    data.WhichWeekday = nWeekday;
    for (std::size_t index = 0; index < exclusions.size(); ++index)
        data.*exclusions[index].pInclude = cbExcludeDay[index].Value() == 0 ? "Y" : "N";
}

// A failure in the middle of an act, in a service or a handler, leaves fields that belong to two modes.
void XNolScheduleTab::CheckShape() const {
    if (!IsShaped() || cboDayName.ListIndex() < 0 || cboDayNum.ListIndex() < 0)
        throw NolSchedError("A failure has cut the change to " + Quoted(cboPeriod.Text()) +
                            " short; the entry is loaded again before it is saved.");
}

std::int32_t XNolScheduleTab::GetFrequency() const {
    if (const auto number = ParseWhole(cboFrequency.Text())) return *number;
    throw NolSchedError("The field cboFrequency holds " + Quoted(cboFrequency.Text()) +
                        ", which is no number.");
}

bool XNolScheduleTab::IsOnDayOfMonth() const {
    return cboPeriod.Text() == periodMonthly && cboDayName.Text() == dayOfMonth;
}

bool XNolScheduleTab::IsOnWeekdayOfMonth() const {
    return cboPeriod.Text() == periodMonthly && cboDayName.Text() != dayOfMonth;
}

std::int32_t XNolScheduleTab::GetWhichMonthDate() const {
    if (!IsOnDayOfMonth() || cboDayNum.Text() == lastOfMonth) return 0;
    return cboDayNum.ListIndex() + 1;
}

std::int32_t XNolScheduleTab::GetWhichWeek() const {
    if (!IsOnWeekdayOfMonth() || cboDayNum.ListIndex() >= lastWeekIndex) return 0;
    return cboDayNum.ListIndex() + 1;
}

std::int32_t XNolScheduleTab::GetWhichWeekday() const {
    const bool isWeekly = cboPeriod.Text() == periodWeekly && cboDayName.Text() != dayOfMonth;
    if (!isWeekly && !IsOnWeekdayOfMonth()) return 1;
    return DayConversion().DayNumberOfName(cboDayName.Text());
}

}  // namespace NolSchedCtls::inline v1
