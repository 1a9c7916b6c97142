#include <gtest/gtest.h>

#include "tests/library/test_schedule_tools.h"

namespace NolSchedCtls::Testing {
namespace {

struct Code {
    const char* code;
    int limit;
    bool keepsMonthDate, keepsWeek, keepsWeekday;
    const char* final;
};
constexpr Code codes[] = {
    {"O", 24, false, false, false, "2036-12-31T09:05"}, {"H", 24, false, false, false, "2030-06-30T23:59:59"},
    {"D", 7, false, false, false, "2030-06-30T09:05"},  {"W", 52, false, false, true, "2030-06-30T09:05"},
    {"M", 12, true, false, false, "2030-06-30T09:05"},  {"A", 12, false, true, true, "2030-06-30T09:05"},
};

void GoesThroughTwoTabs(const Code& c, int frequency, int monthDate, int week, int weekday) {
    const Record record = RecordOf(c.code, frequency, monthDate, week, weekday, "2030-06-30T01:23:45");
    const std::string before = FieldsOf(*record);
    const std::string expected =
        FieldsOf(*RecordOf(c.code, frequency, c.keepsMonthDate ? monthDate : 0, c.keepsWeek ? week : 0,
                           c.keepsWeekday ? weekday : 1, c.final));
    OpenTab first(record);
    EXPECT_EQ(first.Saved(), expected) << before;
    EXPECT_EQ(OpenTab(record).Saved(), expected) << before << ", once more";
}

TEST(ScheduleEncoding, EveryRecurrenceComesBackWithWhatItsCodeUses) {
    const InstalledWorld world;
    for (const Code& c : codes) {
        for (int frequency = 1; frequency <= c.limit; ++frequency)
            GoesThroughTwoTabs(c, frequency, frequency, frequency % 5, frequency % 7 + 1);
        for (int number = 0; number < 35; ++number)
            GoesThroughTwoTabs(c, number % c.limit + 1, number % 29, number / 7, number % 7 + 1);
    }
}

TEST(ScheduleEncoding, OnlyAnExactYesIncludesADay) {
    const InstalledWorld world;
    for (std::size_t index = 0; index < includes.size(); ++index)
        for (const char* include : {"Y", "N", "y", ""}) {
            const Record record = RecordOf("O");
            (*record).*includes[index] = include;
            OpenTab open(record);
            const int ticked = include == std::string("Y") ? 0 : 1;
            EXPECT_EQ(open.tab.cbExcludeDay[index].Value(), ticked) << index << include;
            const std::string letters = std::string("YYYYYYYYY").replace(index, 1, ticked == 0 ? "Y" : "N");
            EXPECT_EQ(open.Saved().substr(10, 9), letters) << index << include;
        }
}

std::string FailureOf(XNolScheduleTab& tab, const Record& record) {
    try {
        tab.LoadData(record, "", nullptr);
    } catch (const NolSchedError& failure) {
        return failure.what();
    }
    return "loaded";
}

TEST(ScheduleEncoding, WhatCannotBeShownEndsTheLoadThere) {
    const InstalledWorld world;
    const std::tuple<Record, const char*, const char*> cases[] = {
        {RecordOf("o", 2), "Periodicity \"o\" ", "Hourly every 1 Period(s)"},
        {RecordOf("H", 25), "Frequency 25 cannot be shown: The list cboFrequency has no entry",
         "Hourly every 1 Period(s)"},
        {RecordOf("D", 8), "it offers \"1\" to \"7\"", "Daily every 1 day(s)"},
        {RecordOf("W", 2, 0, 0, 8), "WhichWeekday 8 ", "Weekly on Sunday every 2 week(s)"},
        {RecordOf("O", 52, 0, 0, 0), "WhichWeekday 0 ", "Once"},
        {RecordOf("M", 4, 29), "WhichMonthDate 29 ", "Monthly on the 1st Day of every 4 month(s)"},
        {RecordOf("M", 4, -1), "WhichMonthDate -1 ", "Monthly on the 1st Day of every 4 month(s)"},
        {RecordOf("A", 4, 0, 5, 3), "WhichWeek 5 ", "Monthly on the 1st Tuesday of every 4 month(s)"},
        {RecordOf("A", 4, 0, -1, 3), "WhichWeek -1 ", "Monthly on the 1st Tuesday of every 4 month(s)"},
    };
    for (const auto& [record, named, sentence] : cases) {
        XNolScheduleTab tab;
        record->IncludeSundays = "N";
        EXPECT_NE(FailureOf(tab, record).find(named), std::string::npos) << FailureOf(tab, record);
        EXPECT_EQ(ScheduleSentence(tab), sentence) << "what the steps before have shown";
        EXPECT_EQ(tab.SSDStartDate.Text(), "Monday, March 02, 2026");
        EXPECT_EQ(tab.cbExcludeDay[0].Value(), 0) << named;
    }
    OpenTab emptied(RecordOf("D"));
    emptied.tab.cboDayNum.Clear();
    EXPECT_EQ(
        FailureOf(emptied.tab, RecordOf("D", 1, 7)),
        "The entry's WhichMonthDate 7 cannot be shown: The list cboDayNum has no index 0; it is empty.");
    EXPECT_EQ(OpenTab(RecordOf("O", 52)).tab.cboFrequency.Text(), "1") << "the hidden list stays as it is";
    EXPECT_THROW(XNolScheduleTab().SaveData(), NolSchedError);
}

TEST(ScheduleDates, TheLastDayIsToldByItsDateAlone) {
    const InstalledWorld world;
    const std::array<const char*, 4> cases[] = {
        {"D", "2035-12-31T23:00", "Monday, December 31, 2035", "2035-12-31T09:05:00"},
        {"D", "2036-12-31T18:30", "", "2036-12-31T09:05:00"},
        {"D", "2037-01-01", "Thursday, January 01, 2037", "2037-01-01T09:05:00"},
        {"H", "2036-12-31", "", "2036-12-31T23:59:59"},
    };
    for (const auto& [code, stored, shown, saved] : cases) {
        OpenTab open(RecordOf(code, 1, 0, 0, 1, stored));
        EXPECT_EQ(open.tab.SSDEndDate.Visible() ? open.tab.SSDEndDate.Text() : "", shown);
        EXPECT_NE(open.tab.SSDEndDate.Visible(), open.tab.txtNoEndDate.Visible()) << code << stored;
        EXPECT_EQ(open.Saved().substr(40), saved) << code << stored;
    }
}

}  // namespace
}  // namespace NolSchedCtls::Testing
