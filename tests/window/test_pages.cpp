#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

TEST_F(Windows, EachKindOfFieldShowsWhatCodeWritesAndTakesWhatAUserTypes) {
    EntryEditor& editor = OpenNew();
    Type(editor, {{"hom.chkOverride", " "}});
    auto& schedule = dynamic_cast<XNolScheduleTab&>(*editor.Session().FindPage("schedule")->tab);
    auto& general = dynamic_cast<XNolSchedGenTab&>(*editor.Session().FindPage("general")->tab);
    int events = 0;  // changes, and beeps for refused keys
    const ScopedConnection changes = editor.Session().Notifier().Changed.Connect([&] { ++events; });
    const ScopedConnection beeps = general.Beep.Connect([&](const ViewField&) { ++events; });
    editor.Session().FindPage("hom")->tab->Field<TextBox>("txtDuration").SetText("longer than the limit");
    general.ctlPurgeOptions.LoadPurgeOptions("Y", 3, {.Settings = {{"Max Purge Interval", "30"}}});
    general.ctlDownloadOptions.SetDownloadMode("Z");
    schedule.lblUnit.SetCaption(" one:            two ");
    schedule.dtpStartTime.SetHour(21);
    EXPECT_FALSE(schedule.dtpStartTime.HasFocus()) << "what code writes is no user's act";
    // A field, what is typed, what it shows then, and the events in between.
    const std::tuple<const char*, const char*, const char*, int> cases[] = {
        {"general.ctlPurgeOptions", "", "true Purge automatically after 3 days (at most 30)", 0},
        {"general.ctlPurgeOptions", "2a1", "true Purge automatically after 321 days (at most 30)", 3},
        {"general.ctlDownloadOptions", "", "false Automatic false Manual", 0},
        {"general.ctlDownloadOptions", " ", "false Automatic true Manual", 1},
        {"schedule.lblUnit", "", "one:\ntwo", 0},
        {"schedule.dtpStartTime", "", "9:00 PM", 0},
        {"schedule.dtpStartTime", "22:30\t", "10:30 PM", 1},
        {"schedule.dtpStartTime", "23:1523:16\t", "11:16 PM", 1},
        {"schedule.dtpStartTime", "25:00\t", "25:00", 0},
        {"schedule.dtpStartTime", "7a\t", "7:00 AM", 1},
        {"schedule.SSDStartDate", "1/5/2036\t", "1/5/2036", 0},  // beyond the last day
        {"schedule.SSDStartDate", "1/5/2027\t", "Tuesday, January 05, 2027", 1},
        {"hom.txtDuration", "", "longer than the limit", 0},
        {"hom.txtDuration", "x\b", "long", 1},
    };
    for (const auto& [field, keys, shown, count] : cases) {
        events = 0;
        if (*keys != 0) Type(editor, {{field, keys}});
        EXPECT_EQ(Shown(Find(editor, field)), shown);
        EXPECT_EQ(events, count) << field;
    }
    QWidget& time = Find(editor, "schedule.dtpStartTime");
    time.setFocus();
    Press(time, "Up, End, Left, Left");
    Press(time, "Down");
    EXPECT_EQ(Shown(time), "7:59 AM");
}

TEST_F(Windows, TabGoesThroughTheFieldsOfAPageInTheirOrder) {
    const struct {
        const char* page;
        Keys keys;          // that bring its fields up
        const char* order;  // as a screen reader says them, what is around them between bars
    } cases[] = {
        {"general",
         {},
         "| Study Group| Study Group=North Cells; | Purge| Purge automatically after; Purge interval in "
         "days=30; "
         "| Download| Automatic; | Override| PLM; HOM; RF Call Trace; VCSA; "
         "| Nightly - Schedule Entry| Create .efg/.pfg File(s); "},
        {"schedule",
         {{"schedule.cboPeriod", "H"}},
         "| Schedule Duration| Start Date: > Start date=Monday, March 02, 2026; End Date:; "
         "| Hourly every 1 Period(s)| Run: > Run=Hourly; Every=1; "
         "| Schedule Frequency| Starting at: > Starting at=12:00 AM; | Exclude| Sunday; Monday; Tuesday; "
         "Wednesday; Thursday; Friday; Saturday; Holidays; Day After Holidays; "
         "| Schedule Duration| End date= No End Date; "},
        {"schedule",
         {{"schedule.cboPeriod", "M"}, {"schedule.chkEndDate", " "}, {"schedule.cboDayName", "M"}},
         "| Schedule Duration| Start Date: > Start date=Monday, March 02, 2026; End Date:; "
         "End date=Monday, March 02, 2026; | Monthly on the 1st Monday of every 1 month(s)| Run: > "
         "Run=Monthly; "
         "Day number=1st; Day=Monday; Every=1; | Schedule Frequency| Starting at: > Starting at=12:00 AM; "
         "| Exclude| Holidays; Day After Holidays; "},
        {"schedule",
         {{"schedule.cboPeriod", "W"}, {"schedule.dtpStartTime", "2230\t"}},
         "| Schedule Duration| Start Date: > Start date=Monday, March 02, 2026; End Date:; "
         "| Weekly on Sunday every 1 week(s)| Run: > Run=Weekly; Day=Sunday; Every=1; "
         "| Schedule Frequency| Starting at: > Starting at=10:30 PM; | Exclude| Holidays; Day After "
         "Holidays; "
         "| Schedule Duration| End date= No End Date; "},
        {"hom",
         {{"hom.chkOverride", " "}},
         "| Nightly* - Schedule Entry| Override HOM Study; | References| Scenario: > Scenario; "
         "| Study Duration| Study Duration (minutes); "},
        {"rfc",
         {{"rfc.chkOverride", " "}, {"rfc.txtDuration", "60"}},
         "| Nightly* - Schedule Entry| Override RF Call Trace Study; "
         "| Study Duration| Study Duration=60 (minutes); | Polling Interval| Polling Interval (seconds); "},
    };
    for (const auto& [page, keys, order] : cases) {
        EntryEditor& editor = OpenNew();
        Type(editor, keys);
        QCoreApplication::processEvents();
        editor.findChild<QTabBar*>()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget& view = editor.PageOf(*editor.Session().FindPage(page));
        QString heard;
        QString around;
        for (QWidget* at; view.isAncestorOf(at = QApplication::focusWidget()); Press(*at, "Tab")) {
            const QString before = std::exchange(around, HeardAround(*at));
            heard += (around == before ? QString() : u"| %1| "_s.arg(around)) + Heard(*at) + u"; "_s;
        }
        EXPECT_EQ(heard.toStdString(), order) << page;
    }
}

TEST_F(Windows, TheSentenceStandsFlushAndCutsNoTextInAnyMode) {
    EntryEditor& editor = OpenNew();
    const QWidget& row = *Find(editor, "schedule.cboPeriod").parentWidget();
    auto& tab = dynamic_cast<XNolScheduleTab&>(*editor.Session().FindPage("schedule")->tab);
    for (const int points : {7, 9, 11, 16, 24}) {
        editor.setFont({editor.font().family(), points});
        QCoreApplication::processEvents();
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
}

}  // namespace NolSchedCtls::Testing
