#include <QAbstractItemModelTester>

#include "host/window/main_window.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

class Lists : public Windows {
  protected:
    using Windows::Windows;
    struct Step {
        const char* act;    // keys, and after a quote a text
        std::string trace;  // what is told and asked, and the window in front
        const char* failing = "";
        QMessageBox::StandardButton answer = QMessageBox::Cancel;
    };
    void Walk(const std::vector<Step>& steps) {
        for (const auto& [act, trace, statement, reply] : steps) {
            if (QApplication::activeWindow() == nullptr) Activate(window);
            told.clear();
            failing = statement;
            answer = reply;
            const QStringList parts = QString::fromUtf8(act).split(u'\'');
            Press(*QApplication::focusWidget(), parts[0].toUtf8());
            QCoreApplication::processEvents();
            QTest::keyClicks(QApplication::focusWidget(), parts.value(1));
            QTest::qWait(parts.size() > 1 || parts[0] == u"Ctrl+S"_s ? 200 : 0);  // these take their time
            EXPECT_TRUE(QTest::qWaitFor([this] { return !window.IsLoading(); }, 20000));
            failing.clear();
            EXPECT_EQ(told + InFront(), trace) << act;
        }
    }
    // The title of an editor; or the list's count, and its hint or first three, the chosen one with a star.
    std::string InFront() const {
        if (auto* const editor = dynamic_cast<EntryEditor*>(QApplication::activeWindow())) {
            const bool isModified = editor->isWindowModified();
            EXPECT_EQ(editor->Button(QDialogButtonBox::Apply)->isEnabled(),
                      isModified || editor->Session().Record().IsNew);
            return editor->windowTitle().replace(u"[*]"_s, isModified ? u"*"_s : QString()).toStdString();
        }
        QStringList texts;
        for (int row = 0; row < std::min(table->model()->rowCount(), 3); ++row) {
            const QModelIndex name = table->model()->index(row, EntryRow::Name);
            EXPECT_EQ(name.data(Qt::ToolTipRole), name.data());
            texts.append((row == table->currentIndex().row() ? u"*"_s : QString()) + name.data().toString());
        }
        if (const auto* hint = table->findChild<QLabel*>(); hint->isVisible()) texts.append(hint->text());
        const std::string count = Shown(*window.statusBar()->findChild<QLabel*>());
        return (window.isVisible() ? "" : "closed: ") + count + ": " + texts.join(u", "_s).toStdString();
    }

    MainWindow window{workspace, dialogs};
    QTableView* table = window.findChild<QTableView*>();
    QAbstractItemModelTester tester{table->model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(Lists, SortAndFilterWhatTheyLoadInPieces) {
    for (int i = 1; i <= 120; ++i) Store("Entry " + std::to_string(i));
    Activate(window);
    Press(window, "F5");
    window.OpenEntry(120)->Save();  // which the loading has not come to
    Activate(window);
    Walk({{"Home", "120 entries: Entry 1, Entry 2, Entry 3"}});
    table->sortByColumn(EntryRow::Name, Qt::DescendingOrder);
    Walk({{"F5", "120 entries: Entry 99, Entry 98, Entry 97"},
          {"Ctrl+F'once ENTRY 7 3/2/2026 north", "21 of 120 entries: *Entry 97, Entry 87, Entry 79"},
          {"Return", "21 of 120 entries: *Entry 97, Entry 87, Entry 79"},
          {"Down, Down, F5", "21 of 120 entries: Entry 97, Entry 87, *Entry 79"},
          {"Ctrl+F'7 9", "2 of 120 entries: Entry 97, *Entry 79"},
          {"Ctrl+F'x", "0 of 120 entries: No entry holds all of these words."}});
    spared = 1;
    Walk({{"F5", "The store fails.\n0 of 50 entries: No entry holds all of these words.", "LIMIT"}});
}

TEST_F(Lists, FollowWhatOthersDo) {
    for (int i = 1; i <= 60; ++i) Store("E" + std::to_string(i));
    const EntryEditor& editor = *window.OpenEntry(2);
    Activate(window);
    Walk({{"F5", "60 entries: *E1, E2, E3"}, {"Down", "60 entries: E1, *E2, E3"}});
    table->sortByColumn(EntryRow::Name, Qt::DescendingOrder);
    const auto shows = [this](const std::string& changed, const std::string& trace) {
        store.Sql("UPDATE NOL_Schedule SET Version = Version + 1, EditorName = " + changed);
        return QTest::qWaitFor([&] { return InFront() == trace; });
    };
    EXPECT_TRUE(shows("'x' || char(8238) WHERE Id = 2", "60 entries: *x\\u202e, E9, E8")) << InFront();
    EXPECT_TRUE(shows("'z' WHERE Id = 5", "60 entries: z, *x\\u202e, E9")) << InFront();
    Walk({{"Ctrl+F'y", "0 of 60 entries: No entry holds all of these words."}});
    EXPECT_TRUE(shows("'y' WHERE Id = 3", "1 of 60 entries: *y")) << InFront();
    store.Sql("DELETE FROM NOL_Schedule WHERE Id = 3");
    EXPECT_TRUE(shows("'yy' WHERE Id = 4", "1 of 59 entries: *yy")) << InFront();
    EXPECT_TRUE(shows("(99 - Id) || 'y'", "59 entries: 98y, 97y, *95y")) << InFront();
    EXPECT_EQ(editor.windowTitle(), u"E2[*] - Schedule Entry"_s);
}

TEST_F(Lists, StayAliveWhileTheStoreWaits) {
    Store();
    EntryEditor& editor = *window.OpenEntry(1);
    Activate(editor);
    EXPECT_EQ(window.OpenEntry(1), &editor) << "two would overtake each other";
    const auto other = OpenDatabase(store.Address());
    std::optional<Transaction> lock(std::in_place, *other);
    QTimer::singleShot(700, [&] {
        auto* const box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        told += Shown(*box->findChild<QLabel*>()) + '\n';
        Press(editor, "Ctrl+S");
        Press(window, "F5");
        for (QWidget* widget : {static_cast<QWidget*>(&editor), static_cast<QWidget*>(&window), box})
            EXPECT_FALSE(widget->close());
    });
    QTest::keyClicks(editor.findChild<QWidget*>(u"name"_s), u"!"_s);
    EXPECT_FALSE(editor.Save());
    EXPECT_EQ(told, "Waiting for the store\n" + store.Address() + ": database is locked\n");
    EXPECT_TRUE(editor.isVisible() && editor.isWindowModified());
    lock.reset();
    EXPECT_TRUE(editor.Save());
}

class DayFirstLists : public Lists {
  protected:
    DayFirstLists() : Lists(*RegionNamed("eu")) {}
};

TEST_F(DayFirstLists, ShowAndTakeDatesAsTheRegionWritesThem) {
    Store();
    Activate(window);
    Walk({{"F5", "1 entries: *Nightly"}});
    EXPECT_EQ(table->model()->index(0, EntryRow::Start).data(), u"2/3/2026"_s);
    EntryEditor& editor = OpenNew();
    QWidget& date = Find(editor, "schedule.SSDStartDate");
    Type(editor, {{"schedule.SSDStartDate", "5/3/2026\t"}});
    EXPECT_EQ(Shown(date), "Thursday, March 05, 2026");
    const auto& outlook = *editor.findChild<QLabel*>(u"outlook"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return outlook.text() == u"Next: Thu 5 Mar 12:00 AM"_s; }));
    QTest::mouseClick(date.findChild<QLineEdit*>(), Qt::LeftButton);
    EXPECT_EQ(Shown(date), "05/03/2026");
    Press(date, "Alt+Down");
    for (const QWidget* owner : {&date, static_cast<QWidget*>(&window)})
        EXPECT_EQ(owner->findChild<QCalendarWidget*>()->firstDayOfWeek(), Qt::Monday);
}

TEST_F(Lists, SortByEachColumn) {
    for (const char* name : {"b", "A", "C"}) Store(name);
    store.Sql("INSERT INTO NOL_Override (NOL_OverrideId, Type) VALUES (1, 'PLM Study'), (3, 'HOM Study')");
    store.Sql(
        "UPDATE NOL_Schedule SET RptGrpId = 4 - Id, ScheduleActive = substr('YNY', Id, 1), Periodicity = "
        "substr('ODH', Id, 1), "
        "FirstDateTime = substr('2026-10-012027-01-052026-03-02', Id * 10 - 9, 10), "
        "FinalDateTime = substr('2030-01-012029-12-312036-12-31', Id * 10 - 9, 10)");
    Walk({{"F5", "3 entries: *b, A, C"}});
    QString orders;
    for (int sorting = 0; sorting < 2 * EntryRow::columnCount; ++sorting) {
        table->sortByColumn(sorting / 2, sorting % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
        for (int row : {0, 1, 2}) orders += table->model()->index(row, EntryRow::Id).data().toString();
    }
    EXPECT_EQ(orders.toStdString(), "123321213312132231231132312213213132231132312213213312");
}

TEST_F(Lists, MakeOpenCopyDeleteAndQuitByKeys) {
    const std::string asks = "The entry has unsaved changes. Do you want to save them?\n";
    const std::string asksToDelete = "Do you want to delete the entry \"One!\"?\n";
    const std::string fails = "The store fails.\n";
    const std::string both = "2 entries: *One!, One (copy)";
    const auto actions = window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(std::ranges::count_if(actions, &QAction::isEnabled), 6) << "need no entry";
    EXPECT_EQ(std::ranges::count(actions, QString(), &QAction::statusTip), 0);
    Walk({{"F5", "0 entries: There are no entries yet. Press Ctrl+N to make one."},
          {"Ctrl+N", "New Schedule Entry - Schedule Entry"},
          {"Escape", "0 entries: There are no entries yet. Press Ctrl+N to make one."},
          {"Ctrl+Shift+N", "New Immediate Entry - Immediate Entry"},
          {"Return", "1 entries: *New Immediate Entry"}});
    store.Sql("UPDATE NOL_Schedule SET EditorName = 'One', LastRunDate = '2026-03-01 00:00:00'");
    choice = -1;
    Walk({{"F5, Ctrl+Shift+N", "1 entries: *One"},  // no group is chosen
          {"Ctrl+D", "One (copy) - Immediate Entry"},
          {"Return", "2 entries: One, *One (copy)"},
          {"Up, Return'!", "One!* - Immediate Entry"},
          {"Escape", asks + "One!* - Immediate Entry"},
          {"Escape", asks + fails + "One!* - Immediate Entry", "UPDATE", QMessageBox::Save},
          {"Ctrl+S", "One! - Immediate Entry"},
          {"Escape", both},
          {"F5", fails + both, "COUNT"},
          {"Return", fails + both, "SELECT"},
          {"Del", asksToDelete + both},
          {"Del", asksToDelete + fails + both, "FROM NOL_Override", QMessageBox::Yes},
          {"Del", asksToDelete + fails + fails + both, " ", QMessageBox::Yes}});
    EXPECT_TRUE(asked[0].preferred == QMessageBox::Save && asked.back().preferred == QMessageBox::Cancel);
    store.Sql("DELETE FROM NOL_Document");
    store.Sql("UPDATE NOL_Schedule SET Id = 3 WHERE Id = 1");
    const std::string gone = "There is no entry 1 in " + store.Address() + ".\n";
    Walk({{"Ctrl+Shift+N", "There is no study group to run; make one first.\n" + both},
          {"Del", asksToDelete + gone + "1 entries: *One (copy)", "", QMessageBox::Yes},
          {"F5", "2 entries: *One (copy), One!"},
          {"Down, Del", asksToDelete + "1 entries: *One (copy)", "", QMessageBox::Yes},
          {"Return'!", "One (copy)!* - Immediate Entry"}});
    Activate(window);
    Walk({{"Ctrl+Q", asks + "1 entries: *One (copy)"},
          {"Ctrl+Q", asks + "closed: 1 entries: *One (copy)", "", QMessageBox::Discard}});
    EXPECT_EQ(store.Sql("SELECT EditorName, RptGrpId, LastRunDate FROM NOL_Schedule"), "One (copy)|1|NULL\n");
}

}  // namespace NolSchedCtls::Testing
