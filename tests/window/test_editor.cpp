#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

TEST_F(Windows, OkStoresEachRecurrence) {
    for (const Keys& recurrence :
         {Keys{{"schedule.cboPeriod", "H"}, {"schedule.cboFrequency", "5"}},
          Keys{{"schedule.cboPeriod", "W"}, {"schedule.cboDayName", "F"}},
          Keys{{"schedule.cboPeriod", "M"}, {"schedule.cboDayNum", "15"}},
          Keys{{"schedule.cboPeriod", "M"}, {"schedule.cboDayName", "M"}, {"schedule.cboDayNum", "L"}}}) {
        EntryEditor& editor = OpenNew();
        Type(editor, recurrence);
        Type(editor, {{"schedule.dtpStartTime", "930p"}, {"schedule.SSDStartDate", "03/09/2026"}});
        Press(editor, Box::Ok);
        EXPECT_TRUE(editor.isHidden());
    }
    EXPECT_EQ(store.Sql("SELECT Periodicity, Frequency, WhichMonthDate, WhichWeek, WhichWeekday, "
                        "FirstDateTime FROM NOL_Schedule ORDER BY Id"),
              "H|5|0|0|1|2026-03-09 21:30:00\n"
              "W|1|0|0|6|2026-03-09 21:30:00\n"
              "M|1|15|0|1|2026-03-09 21:30:00\n"
              "A|1|0|0|2|2026-03-09 21:30:00\n");
    EXPECT_EQ(told, "");
}

TEST_F(Windows, ARefusedSaveShowsItsBoxAndThenThePageAndTheField) {
    EntryEditor& editor = OpenNew();
    Type(editor, {{"hom.chkOverride", " "}, {"hom.txtDuration", "9x"}});
    const QWidget& duration = Find(editor, "hom.txtDuration");
    editor.ShowPage("general");
    show = [&](const Message& message) {
        QTimer::singleShot(0, [&] {
            auto* const shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            told = u"%1|%2|%3"_s.arg(shown->icon()).arg(shown->windowTitle(), shown->text()).toStdString();
            shown->accept();
        });
        ShowMessageBox(message);
    };
    Press(editor, Box::Apply);
    EXPECT_EQ(told, "3|Nightly|Study Duration must be between 10 and 1439 minutes inclusive.");
    Activate(editor);
    EXPECT_TRUE(duration.isVisible() && duration.hasFocus());
    EXPECT_EQ(Shown(duration), "9");
    EXPECT_EQ(store.Sql("SELECT COUNT(*) FROM NOL_Schedule"), "0\n");
}

TEST_F(Windows, CancelAsksOnlyWhereSomethingWouldBeLost) {
    using enum QMessageBox::StandardButton;
    Store();
    const struct {
        Keys keys;
        QMessageBox::StandardButton answer;
        const char* trace;
    } cases[] = {
        {{}, Cancel, "closes: N|2026-03-02 00:00:00\n"},
        {{{"general.chkCreateFiles", " "}}, Cancel, "modified asks stays: N|2026-03-02 00:00:00\n"},
        {{{"general.chkCreateFiles", " "}}, Discard, "modified asks closes: N|2026-03-02 00:00:00\n"},
        {{{"general.chkCreateFiles", " "}}, Save, "modified asks closes: Y|2026-03-02 00:00:00\n"},
        {{{"schedule.SSDStartDate", "04/05/2027"}}, Save, "asks closes: Y|2027-04-05 00:00:00\n"},
    };
    for (const auto& [keys, reply, trace] : cases) {
        EntryEditor& editor = OpenStored();
        Type(editor, keys);
        std::string traced = editor.isWindowModified() ? "modified " : "";
        EXPECT_EQ(editor.Button(Box::Apply)->isEnabled(), editor.isWindowModified());
        answer = reply;
        told.clear();
        Press(editor, "Escape");
        traced += std::string(told.empty() ? "" : "asks ") + (editor.isHidden() ? "closes: " : "stays: ");
        EXPECT_EQ(traced + store.Sql("SELECT CreateFiles, FirstDateTime FROM NOL_Schedule"), trace);
    }
}

TEST_F(Windows, TheSecondSaverIsToldAndKeepsItsInput) {
    Store();
    EntryEditor& first = OpenStored();
    EntryEditor& second = OpenStored();
    for (EntryEditor* editor : {&first, &second}) {
        Type(*editor, {{"general.chkCreateFiles", " "}});
        Press(*editor, Box::Apply);
    }
    EXPECT_TRUE(!first.isWindowModified() && second.isWindowModified());
    EXPECT_EQ(Shown(Find(second, "general.chkCreateFiles")).substr(0, 4), "true");
    EXPECT_TRUE(told.starts_with("The entry \"Nightly\" was saved by tester at 2026-03-02")) << told;
}

TEST_F(Windows, AnEditorMayCloseInsideAHandlerOfItsOwnWidget) {
    Store();
    for (const Keys& keys : {Keys{{"general.chkHom", " "}}, Keys{{"general.fdocRptGroup", "X"}},
                             Keys{{"schedule.cboPeriod", "D"}}, Keys{{"schedule.dtpStartTime", "p"}}}) {
        const QPointer<EntryEditor> editor(&OpenStored());
        const ScopedConnection closing =
            editor->Session().Notifier().Changed.Connect([&] { editor->close(); });
        Type(*editor, keys);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(editor.isNull()) << keys[0].first;
    }
}

TEST_F(Windows, ADateEditsInTheShortFormAndRestsInTheLongOne) {
    EntryEditor& editor = OpenNew();
    QWidget& date = Find(editor, "schedule.SSDStartDate");
    EXPECT_EQ(Shown(date), "Monday, March 02, 2026");
    date.setFocus();
    Press(date, "F2");
    EXPECT_EQ(Shown(date), "03/02/2026");
    Type(editor, {{"schedule.SSDStartDate", "1/5/2027\t"}});
    EXPECT_EQ(Shown(date), "Tuesday, January 05, 2027");
    Type(editor, {{"schedule.SSDStartDate", "1/5/2036"}});  // beyond the last day
    editor.Button(Box::Cancel)->setFocus();
    EXPECT_EQ(Shown(date), "Tuesday, January 05, 2027");
    Press(date, "F4");
    auto* const calendar = date.findChild<QCalendarWidget*>();
    EXPECT_EQ(calendar->maximumDate(), QDate(2035, 12, 31));
    Press(*calendar->findChild<QWidget*>(u"qt_calendar_calendarview"_s), "Right, Return");
    EXPECT_EQ(Shown(date), "Wednesday, January 06, 2027");
}

}  // namespace NolSchedCtls::Testing
