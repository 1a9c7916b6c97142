#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimeEdit>
#include <QTimer>

#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

namespace {

using Box = QDialogButtonBox;

class Editors : public Windows {
  protected:
    void StoreOne() {
        EntrySession session(workspace, EntrySession::NewEntry{false, 1, "Nightly"});
        session.Load();
        ASSERT_EQ(session.Save().refusedBy, nullptr);
    }
    static QString FrontPage(EntryEditor& editor) {
        auto* const pages = editor.findChild<QTabWidget*>();
        return pages->tabText(pages->currentIndex());
    }
    static std::string FocusName() {
        QWidget* widget = QApplication::focusWidget();
        while (widget != nullptr && widget->objectName().isEmpty()) widget = widget->parentWidget();
        return widget == nullptr ? "" : widget->objectName().toStdString();
    }
};

struct Recurrence {
    const char* name;
    std::vector<std::pair<const char*, const char*>> keys;  // typed into the lists of the row
    const char* row;
};

class Recurrences : public Editors, public testing::WithParamInterface<Recurrence> {};

TEST_P(Recurrences, AreStoredByOk) {
    const QPointer<EntryEditor> editor(&Open(NewSession()));
    for (const auto& [list, keys] : GetParam().keys) Type(*editor, std::string("schedule.") + list, keys);
    Type(*editor, "schedule.dtpStartTime", "930p");
    Type(*editor, "schedule.SSDStartDate", "03/09/2026");
    Press(*editor, Box::Ok);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(editor.isNull());
    EXPECT_EQ(
        store.Sql(
            "SELECT Periodicity, Frequency, WhichMonthDate, WhichWeek, WhichWeekday, FirstDateTime FROM "
            "NOL_Schedule"),
        GetParam().row + std::string("|2026-03-09 21:30:00\n"));
    EXPECT_EQ(messages.join(u"|"_s), QString());
    EXPECT_TRUE(asked.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    All, Recurrences,
    testing::Values(Recurrence{"Once", {{"cboPeriod", "O"}}, "O|1|0|0|1"},
                    Recurrence{"Hourly", {{"cboPeriod", "H"}, {"cboFrequency", "5"}}, "H|5|0|0|1"},
                    Recurrence{"Daily", {{"cboPeriod", "D"}, {"cboFrequency", "3"}}, "D|3|0|0|1"},
                    Recurrence{"Weekly", {{"cboPeriod", "W"}, {"cboDayName", "F"}}, "W|1|0|0|6"},
                    Recurrence{"MonthDay", {{"cboPeriod", "M"}, {"cboDayNum", "15"}}, "M|1|15|0|1"},
                    Recurrence{
                        "Weekday",
                        {{"cboPeriod", "M"}, {"cboDayName", "M"}, {"cboDayNum", "L"}, {"cboFrequency", "2"}},
                        "A|2|0|0|2"}),
    [](const auto& recurrence) { return recurrence.param.name; });

TEST_F(Editors, ARefusedSaveShowsItsBoxAndThenThePageAndTheField) {
    EntryEditor& editor = Open(NewSession());
    Press(editor, "hom.chkOverride", Qt::Key_Space);
    Type(editor, "hom.txtDuration", "9x");
    editor.ShowPage("general");
    QString box;
    show = [&](const Message& message) {
        QTimer::singleShot(0, [&] {
            auto* const shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            box = u"%1|%2|%3"_s.arg(shown->icon()).arg(shown->windowTitle(), shown->text());
            shown->accept();
        });
        ShowMessageBox(message);
    };
    Press(editor, Box::Apply);
    EXPECT_EQ(box, u"3|Nightly|Study Duration must be between 10 and 1439 minutes inclusive."_s);
    EXPECT_EQ(FrontPage(editor), u"HOM Study"_s);
    Activate(editor);
    EXPECT_EQ(FocusName(), "txtDuration");
    EXPECT_EQ(Find<QLineEdit>(editor, "hom.txtDuration").text(), u"9"_s);
    EXPECT_EQ(store.Sql("SELECT COUNT(*) FROM NOL_Schedule"), "0\n");
}

TEST_F(Editors, CancelAsksOnlyWhereSomethingWouldBeLost) {
    StoreOne();
    struct Case {
        bool isChanged;
        QMessageBox::StandardButton answer;
        bool asks;
        bool closes;
        const char* files;
    };
    for (const Case& c : {Case{false, QMessageBox::Cancel, false, true, "N\n"},
                          Case{true, QMessageBox::Cancel, true, false, "N\n"},
                          Case{true, QMessageBox::Discard, true, true, "N\n"},
                          Case{true, QMessageBox::Save, true, true, "Y\n"}}) {
        EntryEditor& editor = Open(StoredSession());
        EXPECT_FALSE(editor.isWindowModified()) << "a load is no change";
        if (c.isChanged) Press(editor, "general.chkCreateFiles", Qt::Key_Space);
        EXPECT_EQ(editor.isWindowModified(), c.isChanged);
        EXPECT_EQ(editor.Button(Box::Apply)->isEnabled(), c.isChanged);
        answer = c.answer;
        asked.clear();
        QTest::keyClick(&editor, Qt::Key_Escape);
        EXPECT_EQ(!asked.isEmpty(), c.asks);
        EXPECT_EQ(editor.isHidden(), c.closes);
        EXPECT_EQ(store.Sql("SELECT CreateFiles FROM NOL_Schedule"), c.files);
    }
}

TEST_F(Editors, ATypedDateIsNotLostByCloseOrShortcut) {
    StoreOne();
    EntryEditor& editor = Open(StoredSession());
    Type(editor, "schedule.SSDStartDate", "04/05/2027");
    EXPECT_FALSE(editor.isWindowModified());
    answer = QMessageBox::Save;
    editor.close();
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(store.Sql("SELECT FirstDateTime FROM NOL_Schedule"), "2027-04-05 00:00:00\n");
}

TEST_F(Editors, TheSecondSaverIsToldAndKeepsItsInput) {
    StoreOne();
    EntryEditor& first = Open(StoredSession());
    EntryEditor& second = Open(StoredSession());
    for (EntryEditor* editor : {&first, &second}) {
        Press(*editor, "general.chkCreateFiles", Qt::Key_Space);
        Press(*editor, Box::Apply);
    }
    EXPECT_FALSE(first.isWindowModified());
    EXPECT_TRUE(second.isWindowModified());
    EXPECT_EQ(
        messages.join(u"|"_s),
        u"The entry \"Nightly\" was saved by tester at 2026-03-02 00:00:00, after it was opened here."_s);
    EXPECT_TRUE(Find<QCheckBox>(second, "general.chkCreateFiles").isChecked());
}

TEST_F(Editors, MayCloseInsideAHandlerOfItsOwnWidget) {
    StoreOne();
    const std::pair<const char*, Qt::Key> acts[] = {{"general.chkHom", Qt::Key_Space},
                                                    {"schedule.cboPeriod", Qt::Key_Down},
                                                    {"schedule.dtpStartTime", Qt::Key_Up},
                                                    {"general.fdocRptGroup", Qt::Key_X}};
    for (const auto& [name, key] : acts) {
        const QPointer<EntryEditor> editor(&Open(StoredSession()));
        const ScopedConnection closing =
            editor->Session().Notifier().Changed.Connect([&] { editor->close(); });
        Press(*editor, name, key);
        EXPECT_TRUE(editor->isHidden()) << name;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(editor.isNull()) << name;
    }
}

TEST_F(Editors, ADateFieldEditsInTheShortFormAndRestsInTheLongOne) {
    EntryEditor& editor = Open(NewSession());
    auto& date = Find<QComboBox>(editor, "schedule.SSDStartDate");
    const auto press = [&](const char* keys) { QTest::keyClicks(&date, QString::fromUtf8(keys)); };
    date.setFocus();
    EXPECT_EQ(date.currentText(), u"Monday, March 02, 2026"_s);
    QTest::keyClick(&date, Qt::Key_F2);
    EXPECT_EQ(date.currentText(), u"03/02/2026"_s);
    press("1/5/2027");
    QTest::keyClick(&date, Qt::Key_Tab);
    EXPECT_EQ(date.currentText(), u"Tuesday, January 05, 2027"_s);
    date.setFocus();
    press("1/5/2036");  // a day beyond the last that is offered
    editor.Button(Box::Cancel)->setFocus();
    EXPECT_EQ(date.currentText(), u"Tuesday, January 05, 2027"_s);
    QTest::keyClick(&date, Qt::Key_F4);
    auto* const calendar = date.findChild<QCalendarWidget*>();
    ASSERT_NE(calendar, nullptr);
    EXPECT_EQ(calendar->maximumDate(), QDate(2035, 12, 31));
    QTest::keyClick(calendar->findChild<QWidget*>(u"qt_calendar_calendarview"_s), Qt::Key_Right);
    QTest::keyClick(calendar->findChild<QWidget*>(u"qt_calendar_calendarview"_s), Qt::Key_Return);
    EXPECT_EQ(date.currentText(), u"Wednesday, January 06, 2027"_s);
}

}  // namespace

}  // namespace NolSchedCtls::Testing
