#include <gtest/gtest.h>

#include "tests/library/test_schedule_tools.h"

namespace NolSchedCtls::Testing {
namespace {

// "every 1455|[1] 1920| day(s) 2520": what stands behind cboPeriod, with its left edge.
std::string RowOf(const XNolScheduleTab& tab) {
    std::string text;
    for (const char* name : {"lblOnThe", "cboDayNum", "lblOn", "cboDayName", "lblEvery", "lblOfEvery",
                             "cboFrequency", "lblUnit"}) {
        const ViewField& field = *tab.FindField(name);
        const auto* list = dynamic_cast<const DropDownList*>(&field);
        if (!field.Visible()) continue;
        text += (text.empty() ? "" : "|") + (list == nullptr ? field.Caption() : "[" + list->Text() + "]");
        text += " " + std::to_string(static_cast<int>(field.Left()));
    }
    return text;
}

TEST(ScheduleModes, EachModeShapesTheRow) {
    const InstalledWorld world;
    const std::array<const char*, 3> cases[] = {
        {"Daily", "every 1455|[1] 1920| day(s) 2520", "Daily 1/7 Sunday/7 1st/29 111111111 1 ev ev e-"},
        {"Hourly", "every 1455|[1] 1920|Period(s) 2520", "Hourly 1/24 Sunday/7 1st/29 111111111 1 ev ev e-"},
        {"Weekly", "on 1455|[Sunday] 1720|every 3055|[1] 3520| week(s) 4120",
         "Weekly 1/52 Sunday/7 1st/5 000000011 1 ev ev e-"},
        {"Monthly", "on the  1455|[1st] 2005|[Day] 2805|of every 4140|[1] 4755| month(s) 5355",
         "Monthly 1/12 Day/8 1st/29 111111111 1 ev ev e-"},
        {"Once", "", "Once 6/12 Day/8 1st/29 000000000 0 -v -- -v"},
        {"Daily", "every 1455|[1] 1920| day(s) 2520", "Daily 1/7 Day/8 1st/29 111111111 0 ev -- -v"},
        {"Hourly", "every 1455|[1] 1920|Period(s) 2520", "Hourly 1/24 Day/8 1st/29 111111111 0 ev e- ev"},
    };
    OpenTab open(RecordOf("H"));
    EXPECT_EQ(StateOf(XNolScheduleTab()), "Hourly 1/24 Sunday/7 1st/29 111111111 0 ev e- ev");
    open.tab.chkEndDate.Click();
    for (const auto& [mode, row, state] : cases) {
        open.tab.cboFrequency.PickIndex(5);
        ASSERT_TRUE(open.tab.cboPeriod.Pick(mode));
        EXPECT_EQ(RowOf(open.tab), row) << mode;
        EXPECT_EQ(StateOf(open.tab), state);
    }
    open.tab.lblEvery.SetWidth(500);
    open.tab.SetCtlsDaily();
    EXPECT_EQ(RowOf(open.tab), "every 1455|[1] 1955| day(s) 2555");
}

TEST(ScheduleDayLists, EachPickRefillsTheOtherList) {
    const InstalledWorld world;
    const std::array<const char*, 2> moves[] = {
        {"2nd", "Day/8 2nd/29 11"},        {"6th", "Day/1 6th/29 11"},
        {"28th", "Day/1 28th/29 11"},      {"5th", "Day/8 5th/29 11"},
        {"Friday", "Friday/8 1st/5 01"},   {"3rd", "Friday/8 3rd/5 01"},
        {"Monday", "Monday/8 3rd/5 01"},   {"Day", "Day/8 3rd/29 11"},
        {"Last", "Day/8 Last/29 11"},      {"Sunday", "Sunday/8 Last/5 01"},
        {"Day", "Day/8 Last/29 11"},       {"15th", "Day/1 15th/29 11"},
        {"Daily", "Day/1 15th/29 11"},     {"Monthly", "Day/8 15th/29 11"},
        {"4th", "Day/8 4th/29 11"},        {"Weekly", "Sunday/7 4th/5 01"},
        {"Tuesday", "Tuesday/7 4th/5 01"}, {"Hourly", "Tuesday/7 4th/5 11"}};
    OpenTab open(RecordOf("M", 1, 1));
    XNolScheduleTab& tab = open.tab;
    const auto days = [](const XNolScheduleTab& t) {
        return t.cboDayName.Text() + "/" + std::to_string(t.cboDayName.Entries().size()) + " " +
               t.cboDayNum.Text() + "/" + std::to_string(t.cboDayNum.Entries().size()) +
               (t.cbExcludeDay[6].Enabled() ? " 1" : " 0") + (t.cbExcludeDay[7].Enabled() ? "1" : "0");
    };
    for (const auto& [pick, state] : moves) {
        ASSERT_TRUE(tab.cboDayName.Pick(pick) || tab.cboDayNum.Pick(pick) || tab.cboPeriod.Pick(pick))
            << pick;
        EXPECT_EQ(days(tab), state) << pick;
    }
    EXPECT_EQ(days(OpenTab(RecordOf("M", 1, 6)).tab), "Day/1 6th/29 11") << "as loaded";
    EXPECT_EQ(days(OpenTab(RecordOf("W", 1, 0, 0, 6)).tab), "Friday/7 1st/5 01") << "as loaded";
}

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
    EXPECT_THROW(time.SetMinute(60), NolSchedError);
    EXPECT_THROW(start.SetText("soon"), NolSchedError);
}

TEST(ScheduleEvents, ADateFieldShowsTheEditFormatWhileItHasTheFocus) {
    const InstalledWorld world;
    OpenTab open(RecordOf("H", 1, 0, 0, 1, "2027-01-09"));
    XNolScheduleTab& tab = open.tab;
    const auto texts = [&tab] { return tab.SSDStartDate.Text() + "; " + tab.SSDEndDate.Text(); };
    ASSERT_TRUE(tab.SSDStartDate.BeginEdit());
    EXPECT_EQ(texts(), "03/02/2026; Saturday, January 09, 2027");
    ASSERT_TRUE(tab.SSDEndDate.BeginEdit());
    EXPECT_EQ(texts(), "Monday, March 02, 2026; 01/09/2027");
    EXPECT_EQ(tab.FocusedField(), &tab.SSDEndDate);
    EXPECT_EQ(open.Saved(), "H 1 0/0/1 YYYYYYYYY 2026-03-02T09:05:00 2027-01-09T23:59:59");
    tab.cboFrequency.SetFocus();
    EXPECT_EQ(texts(), "Monday, March 02, 2026; Saturday, January 09, 2027");
}

TEST(ScheduleValidation, RefusesOnlyWhatCanNeverRun) {
    InstalledWorld world;  // today is 3/2/2026
    const char* const all = "All weekdays have been excluded";
    const char* const late = "Start Date is after End Date";
    const std::array<const char*, 5> cases[] = {
        // code, ticked boxes, start, end, reason
        {"H", "000000000", "1999-01-01", "2036-12-31", ""},
        {"W", "111110111", "2026-03-02", "2036-12-31", ""},
        {"O", "111111100", "2026-03-02", "2026-01-01", all},
        {"H", "111111100", "2026-03-05", "2026-03-01", all},
        {"H", "000000000", "2026-03-05", "2026-03-01", late},
        {"H", "000000000", "2026-03-05", "2026-03-04", late},
        {"H", "000000000", "2026-03-05", "2026-03-05", ""},
        {"H", "000000000", "2026-03-01", "2026-03-02", ""},
        {"H", "000000000", "2026-02-01", "2026-03-01", "End Date is in the past"},
    };
    for (const auto& [code, boxes, start, end, reason] : cases) {
        OpenTab open(RecordOf(code, 1, 0, 0, 1, end));
        for (std::size_t i = 0; i < 9; ++i) open.tab.cbExcludeDay[i].SetValue(boxes[i] - '0');
        open.tab.SSDStartDate.PickDate(ParseIso(start));
        open.tab.dtpStartTime.SetFocus();
        open.changes = 0;
        const std::string refused =
            *reason == '\0' ? ""
                            : "Nightly[16]: " + std::string(reason) + ".  Report group can never be run; ";
        EXPECT_EQ(open.tab.IsTabValid("Nightly"), refused.empty()) << boxes << start << end;
        EXPECT_EQ(world.TakeTrace(), refused);
        EXPECT_EQ(open.tab.FocusedField()->Name(), refused.empty() ? "dtpStartTime" : "SSDStartDate");
        EXPECT_EQ(open.changes, 0);
    }
}

}  // namespace
}  // namespace NolSchedCtls::Testing
