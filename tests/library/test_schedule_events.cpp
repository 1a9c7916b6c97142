#include <gtest/gtest.h>

#include "tests/library/test_schedule_tools.h"

namespace NolSchedCtls::Testing {
namespace {

TEST(ScheduleEvents, DateAndTimeReportWhatChanges) {
    const InstalledWorld world;
    OpenTab open(RecordOf("H"));
    auto& start = open.tab.SSDStartDate;
    auto& time = open.tab.dtpStartTime;
    const auto act = [&open](bool done) {
        return (done ? "done " : "refused ") + std::to_string(std::exchange(open.changes, 0));
    };
    EXPECT_EQ(act(start.PickDate(ParseIso("2026-04-01T12:00"))), "done 1");
    EXPECT_EQ(act(start.PickDate(ParseIso("2026-04-01"))), "done 0");
    EXPECT_EQ(act(start.TypeDate("12/31/2035")), "done 1");
    EXPECT_EQ(act(start.TypeDate("1/1/2036")), "refused 0");
    EXPECT_EQ(act(start.TypeDate("12/31/1989")), "refused 0");
    EXPECT_EQ(act(start.TypeDate("soon")), "refused 0");
    EXPECT_EQ(act(start.Click()), "done 1");
    EXPECT_EQ(act(start.BeginEdit()), "done 0");
    EXPECT_EQ(act(time.PickTime(0, 59)), "done 1");
    EXPECT_EQ(act(time.PickTime(0, 59)), "done 0");
    EXPECT_EQ(act(time.PickTime(24, 0)), "refused 0");
    EXPECT_EQ(time.Text(), "12:59 AM");
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
