// What the tests of the schedule tab share: records by their recurrence, an open tab, and what both hold.
#pragma once

#include <memory>
#include <string>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_sentence.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {

using Record = std::shared_ptr<CNolSchedData>;

inline constexpr std::array includes = {
    &CNolSchedData::IncludeSundays,    &CNolSchedData::IncludeMondays,   &CNolSchedData::IncludeTuesdays,
    &CNolSchedData::IncludeWednesdays, &CNolSchedData::IncludeThursdays, &CNolSchedData::IncludeFridays,
    &CNolSchedData::IncludeSaturdays,  &CNolSchedData::IncludeHolidays,  &CNolSchedData::IncludeDayAfterHol};

// A new entry from 2026-03-02 09:05 on.
inline Record RecordOf(const std::string& code, int frequency = 1, int monthDate = 0, int week = 0,
                       int weekday = 1, const std::string& final = "2036-12-31") {
    auto record = std::make_shared<CNolSchedData>();
    record->InitNew(nullptr, false, 0, "Nightly");
    record->FirstDateTime = ParseIso("2026-03-02T09:05");
    record->FinalDateTime = ParseIso(final);
    record->Periodicity = code;
    record->Frequency = frequency;
    record->WhichMonthDate = monthDate;
    record->WhichWeek = week;
    record->WhichWeekday = weekday;
    return record;
}

// "A 6 0/0/7 YYYYYYYYY 2026-03-02T09:05:00 2036-12-31T09:05:00": month date, week, weekday; from Sunday on.
inline std::string FieldsOf(const CNolSchedData& r) {
    std::string text = r.Periodicity + " " + std::to_string(r.Frequency) + " " +
                       std::to_string(r.WhichMonthDate) + "/" + std::to_string(r.WhichWeek) + "/" +
                       std::to_string(r.WhichWeekday) + " ";
    for (const auto include : includes) text += r.*include;
    return text + " " + IsoText(r.FirstDateTime) + " " + IsoText(r.FinalDateTime);
}

// "Weekly 1/52 Sunday/7 1st/5 000000011 1 ev ev e-": mode, the lists' texts and lengths, hidden or not, the
// boxes that are enabled, the end date's tick, and whether its box, it, and the text in its place are enabled
// and visible.
inline std::string StateOf(const XNolScheduleTab& tab) {
    std::string text = tab.cboPeriod.Text();
    for (const DropDownList* list : {&tab.cboFrequency, &tab.cboDayName, &tab.cboDayNum})
        text += " " + list->Text() + "/" + std::to_string(list->Entries().size());
    text += ' ';
    for (const CheckBox& box : tab.cbExcludeDay) text += box.Enabled() ? '1' : '0';
    text += tab.chkEndDate.Value() == 0 ? " 0" : " 1";
    for (const ViewField* field :
         std::initializer_list<const ViewField*>{&tab.chkEndDate, &tab.SSDEndDate, &tab.txtNoEndDate})
        text.append(field->Enabled() ? " e" : " -").append(field->Visible() ? "v" : "-");
    return text;
}

// A tab with the record loaded; `changes` counts what it has reported since.
struct OpenTab {
    explicit OpenTab(Record recordA) : record(std::move(recordA)) {
        notify->Changed.Connect([this] { ++changes; });
        tab.LoadData(record, "", notify);
        changes = 0;
    }
    std::string Saved() {
        tab.SaveData();
        return FieldsOf(*record);
    }

    Record record;
    std::shared_ptr<CPaviseNotify> notify = std::make_shared<CPaviseNotify>();
    XNolScheduleTab tab;
    int changes = 0;
};

}  // namespace NolSchedCtls::Testing
