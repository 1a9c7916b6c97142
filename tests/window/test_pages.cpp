#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

TEST_F(Windows, EachKindOfFieldShowsWhatCodeWritesAndTakesWhatAUserTypes) {
    EntryEditor& editor = OpenNew();
    Type(editor, {{"hom.chkOverride", " "}});
    auto& duration = editor.Session().FindPage("hom")->tab->Field<TextBox>("txtDuration");
    auto& schedule = dynamic_cast<XNolScheduleTab&>(*editor.Session().FindPage("schedule")->tab);
    auto& general = dynamic_cast<XNolSchedGenTab&>(*editor.Session().FindPage("general")->tab);
    const struct {
        const char* field;
        std::function<void()> write;
        const char* written;
        const char* keys;
        const char* typed;
        int events;  // changes, and beeps for refused keys
    } kinds[] = {
        {"general.chkPlm", [&] { general.chkPlm.SetValue(1); }, "true PLM", " ", "false PLM", 2},
        {"general.fdocRptGroup", [&] { general.fdocRptGroup.SetDocument({}); }, "", "No", "No", 2},
        {"general.ctlPurgeOptions", [&] { general.ctlPurgeOptions.LoadPurgeOptions("Y", 3, {}); },
         "true Purge automatically after 3 days (at most 365)", "2a1",
         "true Purge automatically after 321 days (at most 365)", 3},
        {"general.ctlDownloadOptions", [&] { general.ctlDownloadOptions.SetDownloadMode("Z"); },
         "false Automatic false Manual", " ", "false Automatic true Manual", 1},
        {"schedule.cboPeriod", [&] { schedule.cboPeriod.SetText("Weekly"); }, "Weekly", "H", "Hourly", 2},
        {"schedule.SSDStartDate", [&] { schedule.SSDStartDate.SetText("1/5/2027"); },
         "Tuesday, January 05, 2027", "2/1/2027\t", "Monday, February 01, 2027", 1},
        {"hom.txtDuration", [&] { duration.SetText("longer than the limit"); }, "longer than the limit",
         "x\b", "long", 1},
        {"schedule.dtpStartTime", [&] { schedule.dtpStartTime.SetHour(21); }, "9:00 PM", "7a", "7:00 AM", 2},
    };
    int events = 0;
    const ScopedConnection changes = editor.Session().Notifier().Changed.Connect([&] { ++events; });
    const ScopedConnection beeps = general.Beep.Connect([&](const ViewField&) { ++events; });
    for (const auto& [field, write, written, keys, typed, count] : kinds) {
        write();
        EXPECT_EQ(Shown(Find(editor, field)), written);
        EXPECT_FALSE(schedule.dtpStartTime.HasFocus()) << "what code writes is no user's act";
        events = 0;
        Type(editor, {{field, keys}});
        EXPECT_EQ(Shown(Find(editor, field)), typed);
        EXPECT_EQ(events, count) << field;
    }
    schedule.lblUnit.SetCaption(" one:            two ");
    EXPECT_EQ(Shown(Find(editor, "schedule.lblUnit")), "one:\ntwo");
}

TEST_F(Windows, TabGoesThroughTheFieldsOfAPageInTheirOrder) {
    const struct {
        const char* page;
        Keys keys;          // that bring its fields up
        const char* order;  // as a screen reader names them
    } cases[] = {
        {"general",
         {},
         "Study Group, Purge, Purge interval in days, Download, PLM, HOM, RF Call Trace, VCSA, Create "
         ".efg/.pfg File(s)"},
        {"schedule",
         {{"schedule.cboPeriod", "H"}},
         "Start date, End Date:, Run, Every, Starting at, Sunday, Monday, Tuesday, Wednesday, Thursday, "
         "Friday, Saturday, Holidays, Day After Holidays, End date"},
        {"schedule",
         {{"schedule.cboPeriod", "M"}, {"schedule.chkEndDate", " "}, {"schedule.cboDayName", "M"}},
         "Start date, End Date:, End date, Run, Day number, Day, Every, Starting at, Holidays, Day After "
         "Holidays"},
        {"hom", {{"hom.chkOverride", " "}}, "Override HOM Study, Scenario, Study Duration"},
        {"plm", {{"plm.chkOverride", " "}}, "Override PLM Study, Scenario, Study Duration, Retrieve Delay"},
        {"rfc", {{"rfc.chkOverride", " "}}, "Override RF Call Trace Study, Study Duration, Polling Interval"},
        {"vcsa", {{"vcsa.chkOverride", " "}}, "Override VCSA Study, Study Duration, Collect Data File"},
    };
    for (const auto& [page, keys, order] : cases) {
        EntryEditor& editor = OpenNew();
        Type(editor, keys);
        editor.findChild<QTabBar*>()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget& view = editor.PageOf(*editor.Session().FindPage(page));
        QStringList names;
        for (const QWidget* at; view.isAncestorOf(at = QApplication::focusWidget());) {
            while (at->accessibleName().isEmpty() && at != &view) at = at->parentWidget();
            names.append(at->accessibleName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        EXPECT_EQ(names.join(u", "_s).toStdString(), order) << page;
    }
}

TEST_F(Windows, TheSentenceStandsFlushAndCutsNoTextInAnyMode) {
    const QFont former = QApplication::font();
    for (const int points : {7, 9, 11, 16, 24}) {
        QApplication::setFont({former.family(), points});
        EntryEditor& editor = OpenNew();
        const QWidget& row = *Find(editor, "schedule.cboPeriod").parentWidget();
        auto& tab = dynamic_cast<XNolScheduleTab&>(*editor.Session().FindPage("schedule")->tab);
        for (int mode = 0; tab.cboPeriod.PickIndex(mode); ++mode) {
            int edge = -1;
            for (const auto* widget : row.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                if (widget->isHidden()) continue;
                SCOPED_TRACE(widget->objectName().toStdString() + " in mode " + std::to_string(mode));
                EXPECT_TRUE(edge < 0 || edge == widget->x());
                EXPECT_EQ(widget->size(), widget->size().expandedTo(widget->sizeHint()));
                edge = widget->x() + widget->width();
            }
            EXPECT_LE(edge, row.width());
        }
    }
    QApplication::setFont(former);
}

}  // namespace NolSchedCtls::Testing
