#include "host/window/appearance.h"
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
        {"hom.txtDuration", "x\b", "longer than the limi", 1},
        {"general.ctlPurgeOptions", "\b", "true Purge automatically after 123456 days (at most 1234567)", 1},
        {"general.ctlPurgeOptions", "5\b", "true Purge automatically after 12345 days (at most 1234567)", 1},
    };
    for (const auto& [field, keys, shown, count] : cases) {
        if (std::string_view(keys) == "\b")
            general.ctlPurgeOptions.LoadPurgeOptions("Y", 1234567,
                                                     {.Settings = {{"Max Purge Interval", "1234567"}}});
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
    editor.Session().FindPage("hom")->tab->Field<TextBox>("txtDuration").SetText("");
    for (const auto& [keys, shown] : {std::pair{"Up", "1"}, std::pair{"PgUp", "11"}, std::pair{"PgDown", "1"},
                                      std::pair{"PgDown", "0"}}) {
        Press(Find(editor, "hom.txtDuration"), keys);
        EXPECT_EQ(Shown(Find(editor, "hom.txtDuration")), shown);
    }
    auto& number = editor.Session().FindPage("hom")->tab->Field<TextBox>("txtDuration");
    for (const char* text : {"9999", "2147483647", "99999999999999999999"}) {
        number.SetText(text);
        Press(Find(editor, "hom.txtDuration"), "Up");
        EXPECT_EQ(number.Text(), text) << "beyond the limit";
    }
    general.ctlPurgeOptions.LoadPurgeOptions("Y", 365, {});
    Press(*TabStops(Find(editor, "general.ctlPurgeOptions")).last(), "Up");
    EXPECT_EQ(general.ctlPurgeOptions.DaysText(), "365");
    editor.ShowPage("hom");
    Press(editor, "Ctrl+PgUp, Ctrl+Tab");
    Press(editor, "Ctrl+Tab");
    EXPECT_EQ(editor.findChild<QTabWidget*>()->currentIndex(), 3);
}

TEST_F(Windows, AltWritesNoLettersAndAltGrPassesTheFilter) {
    EntryEditor& editor = OpenNew();
    Type(editor, {{"hom.chkOverride", " "}});
    const std::pair<QWidget*, const char*> cases[] = {{&Find(editor, "hom.txtDuration"), "7"},
                                                      {&Find(editor, "hom.fdocCBScenario"), "x7"},
                                                      {editor.findChild<QLineEdit*>(u"name"_s), "Nightlyx7"}};
    for (const auto& [widget, written] : cases) {
        widget->setFocus();
        for (const auto key : {'x', '7'}) {
            QTest::keyClick(widget, key, Qt::AltModifier);
            QTest::keyClick(widget, key, Qt::ControlModifier | Qt::AltModifier);
        }
        EXPECT_EQ(Shown(*widget), written);
    }
}

TEST_F(Windows, AWheelOverAFieldWithoutTheFocusTurnsThePage) {
    EntryEditor& editor = OpenNew();
    for (const auto& [name, shown] :
         {std::pair{"schedule.cboPeriod", "Once"},
          std::pair{"schedule.SSDStartDate", "Monday, March 02, 2026"},
          std::pair{"schedule.dtpStartTime", "12:00 AM"}, std::pair{"general.fdocRptGroup", "North Cells"}}) {
        QWidget& widget = Find(editor, name);
        for (const bool hasFocus : {false, true}) {
            hasFocus ? widget.setFocus() : editor.findChild<QTabBar*>()->setFocus();
            const QPointF at(5, 5);
            QWheelEvent notch(at, widget.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&widget, &notch);
            EXPECT_TRUE(hasFocus || (!notch.isAccepted() && Shown(widget) == shown && !widget.hasFocus()));
        }
    }
    EXPECT_NE(Shown(Find(editor, "schedule.cboPeriod")), "Once") << "with the focus it goes to the next";
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
         "| Schedule Duration| Start Date: > Start Date=Monday, March 02, 2026; End Date:; "
         "| Hourly every 1 Period(s)| Run: > Run=Hourly; Every=1; "
         "| Schedule Frequency| Starting at: > Starting at=12:00 AM; | Exclude| Sunday; Monday; Tuesday; "
         "Wednesday; Thursday; Friday; Saturday; Holidays; Day After Holidays; "
         "| Schedule Duration| End Date= No End Date; "},
        {"schedule",
         {{"schedule.cboPeriod", "M"}, {"schedule.chkEndDate", " "}, {"schedule.cboDayName", "M"}},
         "| Schedule Duration| Start Date: > Start Date=Monday, March 02, 2026; End Date:; "
         "End Date=Monday, March 02, 2026; | Monthly on the 1st Monday of every 1 month(s)| Run: > "
         "Run=Monthly; "
         "Day number=1st; Day=Monday; Every=1; | Schedule Frequency| Starting at: > Starting at=12:00 AM; "
         "| Exclude| Holidays; Day After Holidays; "},
        {"schedule",
         {{"schedule.cboPeriod", "W"}, {"schedule.dtpStartTime", "2230\t"}},
         "| Schedule Duration| Start Date: > Start Date=Monday, March 02, 2026; End Date:; "
         "| Weekly on Sunday every 1 week(s)| Run: > Run=Weekly; Day=Sunday; Every=1; "
         "| Schedule Frequency| Starting at: > Starting at=10:30 PM; | Exclude| Holidays; Day After "
         "Holidays; "
         "| Schedule Duration| End Date= No End Date; "},
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
    for (const int points : {7, 9, 11, -11, 16, 24}) {  // from right to left where it is negative
        editor.setFont({editor.font().family(), std::abs(points)});
        editor.setLayoutDirection(points < 0 ? Qt::RightToLeft : Qt::LeftToRight);
        QCoreApplication::processEvents();
        for (int mode = 0; tab.cboPeriod.PickIndex(mode); ++mode) {
            int edge = -1;
            for (const auto* widget : row.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                if (widget->isHidden()) continue;
                SCOPED_TRACE(widget->objectName().toStdString() + " in mode " + std::to_string(mode));
                const QRect place = QStyle::visualRect(row.layoutDirection(), row.rect(), widget->geometry());
                EXPECT_TRUE(edge < 0 || edge == place.x());
                EXPECT_EQ(place.size(), place.size().expandedTo(widget->sizeHint()));
                edge = place.right() + 1;
            }
            EXPECT_LE(edge, row.width());
        }
    }
}

TEST_F(Windows, AnEditorFitsASmallScreenAndScrollsToTheFieldInUse) {
    const auto all = [](const QWidget& widget) { return widget.visibleRegion() == widget.rect(); };
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        EntryEditor& editor = OpenNew();
        EXPECT_EQ(std::ranges::count_if(editor.findChildren<QScrollBar*>(), &QWidget::isVisible), 0);
        editor.setLayoutDirection(direction);
        editor.resize(400, 300);
        Type(editor, {{"hom.chkOverride", " "}});
        EXPECT_EQ(editor.size(), QSize(400, 300));
        for (const auto* button : editor.findChildren<QPushButton*>()) EXPECT_TRUE(all(*button));
        for (const Page& page : editor.Session().Pages())
            for (const ViewField* field : page.tab->Fields()) {
                QWidget& widget = Find(editor, std::string(page.name) + '.' + field->Name());
                if (!field->IsTabStop()) continue;
                for (QWidget* stop : TabStops(widget)) {
                    if (!stop->isEnabled() || !stop->isVisible()) continue;
                    stop->setFocus();
                    QCoreApplication::processEvents();
                    const QRect room(QPoint(), editor.PageOf(page).viewport()->size());
                    const QRect seen =
                        QStyle::visualRect(direction, stop->rect(), stop->visibleRegion().boundingRect());
                    EXPECT_EQ(seen, stop->rect() & room) << field->Name();
                }
            }
        const QRect screen = editor.screen()->availableGeometry();
        editor.move(direction == Qt::LeftToRight ? screen.right() - 250 : -150, screen.bottom() - 200);
        QWidget& date = Find(editor, "schedule.SSDStartDate");
        Press(date, "Alt+Down");
        const QRect popup = date.findChild<QCalendarWidget*>()->window()->geometry();
        EXPECT_TRUE(screen.contains(popup));
        EXPECT_FALSE(popup.intersects({date.mapToGlobal(QPoint()), date.size()}));
    }
}

TEST_F(Windows, EnglishReadsFromLeftToRightWhereverItStands) {
    QImage drawn[2];
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QImage& image = drawn[direction] = QImage(200, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setLayoutDirection(direction);
        qApp->style()->drawItemText(&painter, image.rect(), Qt::AlignCenter, {}, true, u"End Date:"_s);
    }
    EXPECT_EQ(drawn[0], drawn[1]);
}

TEST_F(Windows, EmptyBoxesAndFieldsHaveClearEdges) {
    const auto luminance = [](QRgb color) {
        const QColor linear = QColor(color).toRgb();
        const auto part = [](double value) { return std::pow((value + 0.055) / 1.055, 2.4); };
        return 0.2126 * part(linear.redF()) + 0.7152 * part(linear.greenF()) + 0.0722 * part(linear.blueF());
    };
    for (const bool isDark : {true, false}) {
        SetAppearance(isDark);
        for (QWidget* widget : std::initializer_list<QWidget*>{new QCheckBox, new QRadioButton, new QLineEdit,
                                                               new QComboBox, new QSpinBox}) {
            widget->resize(widget->sizeHint());
            const QImage image = widget->grab().toImage();
            const double ground = luminance(widget->palette().window().color().rgb()) + 0.05;
            double most = 1;
            for (int x = 0; x < image.width() / 4; ++x)
                for (int y = 0; y < image.height(); ++y) {
                    const double ratio = (luminance(image.pixel(x, y)) + 0.05) / ground;
                    most = std::max({most, ratio, 1 / ratio});
                }
            EXPECT_GE(most, 3) << widget->metaObject()->className() << isDark;
            delete widget;
        }
    }
}

}  // namespace NolSchedCtls::Testing
