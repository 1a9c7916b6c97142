#include "host/window/main_window.h"
#include "host/window/outlook_pane.h"
#include "host/window/run_calendar.h"
#include "host/window/week_view.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

TEST_F(Windows, ALineTellsAfterEachActWhatTheEntryWouldRun) {
    const auto period = [](const char* mode) { return std::pair("schedule.cboPeriod", mode); };
    const auto end = [](const char* day) { return std::pair("schedule.SSDEndDate", day); };
    const std::pair<const char*, const char*> hasEnd = {"schedule.chkEndDate", " "};
    const std::pair<const char*, const char*> isFriday = {"schedule.cboDayName", "F"};
    const struct {
        Keys keys;
        const char* line;
        const char* failing = "";
    } cases[] = {
        {{}, "Ended: no run is to come"},
        {{{"schedule.SSDStartDate", "3/4/2026\t"}}, "Next: Wed Mar 4 12:00 AM"},
        {{period("D")}, "Next: Tue Mar 3 12:00 AM, Wed Mar 4 12:00 AM, ..."},
        {{period("D"), hasEnd, end("3/3/2026\t")}, "Next: Tue Mar 3 12:00 AM, then no more"},
        {{period("D"), hasEnd, end("3/12/2026\t")},
         "Next: Tue Mar 3 12:00 AM, Wed Mar 4 12:00 AM, ... 10 until Mar 12, 2026"},
        {{period("H"), hasEnd, end("3/1/2027\t"), {"schedule.dtpStartTime", "9p"}},
         "Next: Mon Mar 2 9:00 PM, Mon Mar 2 10:00 PM, ... more than 1,000 until Mar 1, 2027"},
        {{period("M"), {"schedule.cboFrequency", "9"}},
         "Next: Tue Dec 1 12:00 AM, Wed Sep 1, 2027 12:00 AM, ..."},
        {{period("W"), isFriday, hasEnd, end("3/5/2026\t")},
         "Never runs: the end comes before the first Friday!"},
        {{period("D")}, "The outlook cannot be read: The store fails.!", "NOL_Holiday"},
    };
    for (const auto& [keys, line, statement] : cases) {
        failing = statement;
        EntryEditor& editor = OpenNew();
        Type(editor, keys);
        const int changes = editor.Session().Changes();
        const auto& label = *editor.findChild<QLabel*>(u"outlook"_s);
        const auto text = [&] {
            return Shown(label) + (label.foregroundRole() == QPalette::BrightText ? "!" : "");
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return text() == line; }, 500)) << text();
        EXPECT_EQ(editor.Session().Changes(), changes);
    }
}

}  // namespace NolSchedCtls::Testing
