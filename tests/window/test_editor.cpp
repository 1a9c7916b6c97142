#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

TEST_F(Windows, AMessageBoxShowsPlainTextUnderItsIcon) {
    QTimer::singleShot(0, [] {
        auto& box = dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget());
        EXPECT_TRUE(box.icon() == QMessageBox::Warning && box.textFormat() == Qt::PlainText);
        EXPECT_EQ(box.windowTitle() + u": "_s + box.text(), u"Nightly: One\nTwo"_s);
        box.accept();
    });
    ShowMessageBox({"One\r\nTwo", 48, "Nightly"});
}

TEST_F(Windows, AQuestionLeavesOutTheButtonsThatItDoesNotOffer) {
    QTimer::singleShot(0, [] {
        dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget()).button(QMessageBox::Cancel)->click();
    });
    const auto given =
        UserDialogs().ask(nullptr, {u"T"_s,
                                    u"Gone."_s,
                                    QMessageBox::Save | QMessageBox::Cancel,
                                    QMessageBox::Cancel,
                                    {{QMessageBox::Retry, u"Reload"_s}, {QMessageBox::Save, u"Copy"_s}}});
    EXPECT_EQ(given, QMessageBox::Cancel);
}

TEST_F(Windows, ARefusedSaveShowsThePageAndTheField) {
    EntryEditor& editor = OpenNew();
    Type(editor, {{"hom.chkOverride", " "}, {"hom.txtDuration", "9x"}});
    const QWidget& duration = Find(editor, "hom.txtDuration");
    answer = QMessageBox::Save;
    onMessage = [&] { EXPECT_TRUE(duration.isVisible()) << "the page turns before the box"; };
    for (const char* keys : {"Return", "Escape", "Ctrl+S"}) {
        editor.ShowPage("general");
        told.clear();
        Press(editor, keys);
        EXPECT_TRUE(QTest::qWaitFor([&] { return duration.hasFocus() && duration.isVisible(); }));
        EXPECT_TRUE(told.ends_with("Study Duration must be between 10 and 1439 minutes inclusive.\n"));
        EXPECT_EQ(toldUnder, "Nightly - HOM Study");
    }
    EXPECT_EQ(asked.size(), 1U) << "by Escape";
    onMessage = {};
    editor.findChild<QLineEdit*>(u"name"_s)->setText(u"  "_s);
    EXPECT_FALSE(editor.Save());
    EXPECT_TRUE(told.ends_with("An entry needs a name.\n"));
}

TEST_F(Windows, ARefusedTextStaysMarkedAndStopsEverySave) {
    Store();
    answer = QMessageBox::Save;
    const std::tuple<const char*, const char*, const char*, const char*> typed[] = {
        {"schedule.SSDStartDate", "24.13.2026", "24 Dec\t", "Thursday, December 24, 2026"},
        {"schedule.dtpStartTime", "25:00", "2230\t", "10:30 PM"}};
    for (const auto& [name, text, mended, shown] : typed)
        for (const char* keys : {"Return", "Ctrl+S", "Escape"}) {
            editors.emplace_back(new EntryEditor(std::make_unique<EntrySession>(workspace, 1), dialogs));
            EntryEditor& editor = *editors.back();
            Activate(editor);
            Type(editor, {{name, text}});
            told.clear();
            Press(editor, keys);
            ASSERT_TRUE(QTest::qWaitFor([&] { return !told.empty(); })) << keys;
            EXPECT_NE(told.find(Quoted(text) + " is no "), std::string::npos) << told;
            const QWidget& widget = Find(editor, name);
            EXPECT_TRUE(editor.isVisible() && widget.hasFocus()) << keys;
            EXPECT_EQ(Shown(widget), text);
            const auto isMarked = [&] {
                const auto lines = editor.findChildren<QLineEdit*>();
                return std::any_of(lines.begin(), lines.end(),
                                   [](const QLineEdit* line) { return !line->toolTip().isEmpty(); });
            };
            EXPECT_TRUE(isMarked());
            Type(editor, {{name, mended}});
            EXPECT_EQ(Shown(widget), shown) << keys;
            EXPECT_FALSE(isMarked());
        }
    EXPECT_EQ(store.Sql("SELECT Version FROM NOL_Schedule"), "1\n");
}

TEST_F(Windows, AnOvertakenEntryIsReloadedOrSavedAsACopy) {
    Store();
    const std::string saved =
        "The entry \"Nightly\" was saved by bob at 2026-03-03, after it was opened here.\n"
        "\nSchedule, Run: \"Once\" is stored, \"Daily\" is here\n";
    const std::tuple<const char*, std::string, QMessageBox::StandardButton, const char*, const char*>
        cases[] = {{"UPDATE NOL_Schedule SET Version = 9, SavedBy = 'bob', SavedAt = '2026-03-03'", saved,
                    QMessageBox::Cancel, "Daily", "Nightly O\n"},
                   {"UPDATE NOL_Schedule SET Version = 10", saved, QMessageBox::Retry, "Once", "Nightly O\n"},
                   {"UPDATE NOL_Schedule SET Version = 11", saved, QMessageBox::Save, "Daily",
                    "Nightly O\nNightly (copy) D\n"},
                   {"DELETE FROM NOL_Schedule WHERE Id = 1",
                    "The entry \"Nightly\" was deleted by another user since it was opened.\n",
                    QMessageBox::Save, "Daily", "Nightly (copy) D\nNightly (copy) D\n"}};
    for (const auto& [others, question, given, shown, stored] : cases) {
        auto& editor =
            *editors.emplace_back(new EntryEditor(std::make_unique<EntrySession>(workspace, 1), dialogs));
        Activate(editor);
        Type(editor, {{"schedule.cboPeriod", "D"}});
        store.Sql(others);
        answer = given;
        told.clear();
        editor.Button(QDialogButtonBox::Apply)->click();
        QCoreApplication::processEvents();
        EXPECT_EQ(told, question);
        EXPECT_EQ(asked.back().buttons.testFlag(QMessageBox::Retry), question == saved);
        EXPECT_EQ(Shown(Find(editor, "schedule.cboPeriod")), shown);
        EXPECT_EQ(editor.isWindowModified(), given == QMessageBox::Cancel);
        EXPECT_EQ(editor.windowTitle().startsWith(u"Nightly (copy)"), given == QMessageBox::Save);
        EXPECT_EQ(store.Sql("SELECT EditorName || ' ' || Periodicity FROM NOL_Schedule ORDER BY Id"), stored);
    }
}

TEST_F(Windows, AReloadThatFailsLeavesTheEditorAsItIs) {
    Store();
    auto& editor =
        *editors.emplace_back(new EntryEditor(std::make_unique<EntrySession>(workspace, 1), dialogs));
    Activate(editor);
    Type(editor, {{"schedule.cboPeriod", "D"}});
    store.Sql("UPDATE NOL_Schedule SET Version = 9, ScheduleActive = 'N', EditorName = 'Other'");
    answer = QMessageBox::Retry;
    EXPECT_FALSE(editor.Save());
    EXPECT_NE(told.find("Name: \"Other\" is stored, \"Nightly\" is here\nState: \"paused\" is stored"),
              std::string::npos)
        << told;
    failing = "NOL_Document";  // which the pages need
    QCoreApplication::processEvents();
    EXPECT_EQ(Shown(Find(editor, "schedule.cboPeriod")), "Daily");
    EXPECT_TRUE(editor.isWindowModified() && told.ends_with("The store fails.\n")) << told;
    failing.clear();
    EXPECT_FALSE(editor.Save());
    QCoreApplication::processEvents();
    EXPECT_EQ(Shown(Find(editor, "schedule.cboPeriod")), "Once");
    EXPECT_EQ(Shown(*editor.findChild<QLineEdit*>(u"name"_s)), "Other");
    store.Sql("UPDATE NOL_Schedule SET Version = 10, EditorName = 'Third'");
    editor.FollowStored();
    EXPECT_EQ(Shown(*editor.findChild<QLineEdit*>(u"name"_s)), "Third") << "nothing was changed here";
}

TEST_F(Windows, WhatALoadHasChangedIsUnsaved) {
    Store();
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"UPDATE NOL_Schedule SET PurgeInterval = 30", "", false},
        {"UPDATE NOL_Schedule SET PurgeInterval = 999", "365", true},
        {"UPDATE NOL_Schedule SET RptGrpId = 99", "365", true}};
    for (const auto& [others, days, isUnsaved] : cases) {
        store.Sql(others);
        auto& editor =
            *editors.emplace_back(new EntryEditor(std::make_unique<EntrySession>(workspace, 1), dialogs));
        EXPECT_EQ(editor.isWindowModified(), isUnsaved) << others;
        if (isUnsaved) editor.accept();
        const std::string stored = store.Sql("SELECT PurgeInterval FROM NOL_Schedule");
        EXPECT_TRUE(*days == 0 || stored == std::string(days) + '\n') << stored;
    }
    EXPECT_TRUE(told.ends_with("A Study Group is required.\n")) << told;
}

TEST_F(Windows, AnEditorMayCloseInsideAHandlerOfItsOwnWidget) {
    const Keys acts = {
        {"general.chkHom", " "}, {"general.fdocRptGroup", "X"}, {"schedule.dtpStartTime", "9p\t"}};
    for (const auto& act : acts) {
        const QPointer<EntryEditor> editor(&OpenNew());
        const ScopedConnection closing =
            editor->Session().Notifier().Changed.Connect([&] { editor->close(); });
        Type(*editor, {act});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(editor.isNull()) << act.first;
    }
}

TEST_F(Windows, ADateEditsInTheShortFormAndRestsInTheLongOne) {
    EntryEditor& editor = OpenNew();
    QWidget& date = Find(editor, "schedule.SSDStartDate");
    Press(editor, "Alt+S");
    EXPECT_TRUE(date.hasFocus());
    QTest::mouseClick(date.findChild<QLineEdit*>(), Qt::LeftButton);
    EXPECT_EQ(Shown(date), "03/02/2026");
    Type(editor, {{"schedule.SSDStartDate", "\b1/5/2027"}});
    Press(date, "Alt+Down");
    const auto& calendar = *date.findChild<QCalendarWidget*>();
    EXPECT_EQ(calendar.selectedDate(), QDate(2027, 1, 5));
    EXPECT_EQ(calendar.minimumDate(), QDate(1990, 1, 1));
    EXPECT_EQ(calendar.maximumDate(), QDate(2035, 12, 31));
    Press(*calendar.findChild<QWidget*>(u"qt_calendar_calendarview"_s), "Right, Return");
    Press(date, "Tab");
    EXPECT_EQ(Shown(date), "Wednesday, January 06, 2027");
    const int changes = editor.Session().Changes();
    Press(date, "Alt+Down");
    Press(*QApplication::activePopupWidget()->findChild<QTableView*>(), "Return");
    EXPECT_EQ(editor.Session().Changes(), changes + 1) << "who picks the day that stands there has clicked";
    Type(editor, {{"schedule.SSDStartDate", "1/7/2027"}});
    Activate(OpenNew());
    EXPECT_EQ(Shown(date), "1/7/2027") << "the user may come back to it";
    editor.ShowPage("general");
    EXPECT_EQ(Shown(date), "Thursday, January 07, 2027");
    Type(editor, {{"schedule.SSDStartDate", "1/8/2027"}});
    editor.Save();
    EXPECT_EQ(store.Sql("SELECT FirstDateTime FROM NOL_Schedule"), "2027-01-08 00:00:00\n");
}

TEST_F(Windows, APickerOffersWhatTheStoreHoldsWhenItOpens) {
    Store();  // keeps its group as the last one
    EntryEditor& editor = OpenNew(0);
    auto& picker = dynamic_cast<QComboBox&>(Find(editor, "general.fdocRptGroup"));
    EXPECT_EQ(picker.lineEdit()->placeholderText(), u"None"_s);
    Type(editor, {{"general.fdocRptGroup", "CELL"}});
    EXPECT_EQ(picker.completer()->completionCount(), 2);
    QTest::keySequence(picker.completer()->popup(), QKeySequence(u"Down, Down, Tab"_s));
    EXPECT_EQ(editor.Session().FindPage("general")->tab->Field<XMarlet>("fdocRptGroup").Text(),
              Shown(picker));
    EXPECT_EQ(picker.currentText(), u"South Cells"_s);
    for (const auto& [part, taken] : {std::pair{"cells", "cells"}, std::pair{"core", "Core Sites"}}) {
        picker.lineEdit()->selectAll();
        Type(editor, {{"general.fdocRptGroup", part}});
        picker.completer()->popup()->hide();
        picker.setFocus();
        editor.findChild<QTabBar*>()->setFocus();
        EXPECT_EQ(Shown(picker), taken) << "what two have is not taken";
    }
    picker.lineEdit()->selectAll();
    Type(editor, {{"general.fdocRptGroup", "\b"}});
    store.Sql("DELETE FROM NOL_Document WHERE Name = 'South Cells'");
    for (const char* statement : {"", "NOL_Document"}) {
        failing = statement;
        picker.showPopup();
        EXPECT_EQ(picker.count(), 2);
        EXPECT_EQ(picker.view()->currentIndex().data(), u"North Cells"_s);
        picker.hidePopup();
    }
    EXPECT_EQ(told, "The store fails.\n");
}

}  // namespace NolSchedCtls::Testing
