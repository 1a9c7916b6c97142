#include <gtest/gtest.h>

#include "tests/library/test_schedule_tools.h"

namespace NolSchedCtls::Testing {
namespace {

TEST(ScheduleEncoding, ARecordComesBackWithWhatItsCodeUses) {
    const InstalledWorld world;
    const std::pair<Record, const char*> cases[] = {
        {RecordOf("O", 24, 28, 4, 7, "2035-12-31T01:23"), "O 24 0/0/1 2036-12-31T09:05:00"},
        {RecordOf("H", 24, 28, 4, 7, "2035-12-31T01:23"), "H 24 0/0/1 2035-12-31T23:59:59"},
        {RecordOf("H", 1, 0, 0, 1, "2036-12-31"), "H 1 0/0/1 2036-12-31T23:59:59"},
        {RecordOf("D", 7, 28, 4, 7, "2036-12-31T18:30"), "D 7 0/0/1 2036-12-31T09:05:00"},
        {RecordOf("D", 1, 0, 0, 1, "2037-01-01"), "D 1 0/0/1 2037-01-01T09:05:00"},
        {RecordOf("W", 52, 28, 4, 7, "2035-12-31"), "W 52 0/0/7 2035-12-31T09:05:00"},
        {RecordOf("M", 12, 28, 4, 7), "M 12 28/0/1 2036-12-31T09:05:00"},
        {RecordOf("M", 1, 0, 0, 1), "M 1 0/0/1 2036-12-31T09:05:00"},
        {RecordOf("A", 12, 28, 4, 7), "A 12 0/4/7 2036-12-31T09:05:00"},
        {RecordOf("A", 1, 0, 0, 1), "A 1 0/0/1 2036-12-31T09:05:00"}};
    for (const auto& [record, saved] : cases)
        for (int turn = 0; turn < 2; ++turn) {
            OpenTab open(record);
            const bool isShown = open.tab.SSDEndDate.Visible();
            EXPECT_NE(isShown, open.tab.txtNoEndDate.Visible()) << saved;
            EXPECT_EQ(isShown, std::string(saved).find("2036-12-31") == std::string::npos) << saved;
            EXPECT_EQ(open.Saved().erase(open.Saved().find("YYY"), 30), saved);
        }
}

TEST(ScheduleEncoding, OnlyAnExactYesIncludesADay) {
    const InstalledWorld world;
    const Record record = RecordOf("O");
    std::string boxes;
    for (std::size_t i = 0; i < includes.size(); ++i)
        (*record).*includes[i] = std::array{"Y", "N", "y", "Y", ""}[i % 5];
    OpenTab open(record);
    for (const CheckBox& box : open.tab.cbExcludeDay) boxes += std::to_string(box.Value());
    EXPECT_EQ(boxes + open.Saved().substr(10, 9), "011010110YNNYNYNNY");
}

TEST(ScheduleEncoding, WhatCannotBeShownEndsTheLoadThere) {
    const InstalledWorld world;
    const std::tuple<Record, const char*, const char*> cases[] = {
        {RecordOf("o", 2), "Periodicity \"o\" cannot be shown: it is one of \"O\", \"H\", ",
         "Hourly every 1 Period(s)"},
        {RecordOf("H", 25), "Frequency 25 cannot be shown: it is 1 to 24 where Periodicity is \"H\".",
         "Hourly every 1 Period(s)"},
        {RecordOf("D", 8), "it is 1 to 7 ", "Daily every 1 day(s)"},
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
        const std::string failure = FailureOf([&, &data = record] { tab.LoadData(data, "", nullptr); });
        EXPECT_NE(failure.find(named), std::string::npos) << failure;
        EXPECT_EQ(ScheduleSentence(tab), sentence) << "what the steps before have shown";
        EXPECT_EQ(tab.SSDStartDate.Text(), "Monday, March 02, 2026");
        EXPECT_EQ(tab.cbExcludeDay[0].Value(), 0) << named;
    }
    OpenTab emptied(RecordOf("D"));
    emptied.tab.cboDayNum.Clear();
    EXPECT_EQ(
        FailureOf([&] { emptied.tab.LoadData(RecordOf("D", 1, 7), "", nullptr); }),
        "The entry's WhichMonthDate 7 cannot be shown: The list cboDayNum has no index 0; it is empty.");
    EXPECT_EQ(OpenTab(RecordOf("O", 52)).tab.cboFrequency.Text(), "1") << "the hidden list stays as it is";
    EXPECT_THROW(XNolScheduleTab().SaveData(), NolSchedError);
}

TEST(ScheduleEvents, DateAndTimeReportWhatChanges) {
    InstalledWorld world;
    OpenTab open(RecordOf("H"));
    auto& start = open.tab.SSDStartDate;
    auto& time = open.tab.dtpStartTime;
    std::string trace;
    const auto act = [&](bool isDone) {
        trace += (isDone ? "+" : "-") + std::to_string(std::exchange(open.changes, 0)) + " ";
    };
    act(start.PickDate(start.DateValue()));  // a click all the same
    for (const char* date : {"4/1/2026", "4/1/2026 0:00", "12/31/2035", "1/1/2036", "12/31/1989", "soon"})
        act(start.TypeText(date));
    act(start.BeginEdit());
    trace += start.Text() + " ";
    for (const auto& [hour, minute] : {std::pair{0, 59}, {0, 59}, {24, 0}}) act(time.PickTime(hour, minute));
    trace += start.Text() + " " + time.Text();
    EXPECT_EQ(trace, "+1 +1 +0 +1 -0 -0 -0 +0 soon +1 +0 -0 soon 12:59 AM");
    EXPECT_EQ(FailureOf([&] { open.tab.SaveData(); }), start.Refusal());
    EXPECT_FALSE(open.tab.IsTabValid("T"));
    EXPECT_EQ(world.TakeTrace(), "T[16]: " + start.Refusal() + "; ");
    EXPECT_TRUE(start.HasFocus());
    start.DropRefusedText();
    EXPECT_EQ(start.Text(), "Monday, December 31, 2035");
    time.SetMinute(9);
    time.SetHour(12);
    EXPECT_EQ(time.Text(), "12:09 PM");
    EXPECT_THROW(time.SetMinute(60), NolSchedError);
    EXPECT_THROW(open.tab.cboPeriod.SetListIndex(5), NolSchedError);
    EXPECT_THROW(start.SetText("soon"), NolSchedError);
}

TEST(ScheduleEvents, AClickInAHiddenDayListPutsTheTwoListsOutOfStep) {
    const InstalledWorld world;
    OpenTab open(RecordOf("D", 1, 0, 0, 4));
    EXPECT_TRUE(open.tab.cboPeriod.Pick("Weekly"));
    EXPECT_EQ(open.changes, 2);
    EXPECT_EQ(StateOf(open.tab), "Weekly 1/52 Sunday/7 1st/29 000000011 0 ev e- ev");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
