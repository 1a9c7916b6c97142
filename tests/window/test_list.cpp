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
            EXPECT_EQ(name.data(Qt::ToolTipRole).toString(), u"<p>%1</p>"_s.arg(name.data().toString()));
            texts.append((row == table->currentIndex().row() ? u"*"_s : QString()) + name.data().toString());
        }
        if (const auto* hint = table->findChild<QLabel*>(); hint->isVisible()) texts.append(hint->text());
        const std::string count = Shown(*window.statusBar()->findChild<QLabel*>());
        return (window.isVisible() ? "" : "closed: ") + count + ": " + texts.join(u", "_s).toStdString();
    }

    MainWindow window{workspace, dialogs};
    QTableView* table = window.findChild<EntryTable*>();
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
    Walk({{"F5", "120 entries: *Entry 120, Entry 119, Entry 118"},
          {"Ctrl+F'once ENTRY 7 3/2/2026 north", "21 of 120 entries: *Entry 117, Entry 107, Entry 97"},
          {"Return", "21 of 120 entries: *Entry 117, Entry 107, Entry 97"},
          {"Down, Down, F5", "21 of 120 entries: Entry 117, Entry 107, *Entry 97"},
          {"Ctrl+F'tester, 7 9", "2 of 120 entries: *Entry 97, Entry 79"},
          {"Ctrl+F'entry", "120 entries: Entry 120, Entry 119, Entry 118"},
          {"Return", "120 entries: Entry 120, Entry 119, Entry 118"},
          {"Ctrl+A, Del",
           "Do you want to delete 120 entries? One of them is open in an editor.\n"
           "0 entries: There are no entries yet. Press Ctrl+N to make one.",
           "", QMessageBox::Yes},
          {"Ctrl+Z", "120 entries: *Entry 120, Entry 119, Entry 118"},
          {"Ctrl+F'x", "0 of 120 entries: No entry passes the filter."}});
    spared = 1;
    Walk({{"F5", "The store fails.\n0 of 50 entries read; F5 reads the others: No entry passes the filter.",
           "LIMIT"}});
}

TEST_F(Lists, OfManyEntriesAreSortedAndFilteredBesideTheWindow) {
    EntryList many;
    EntryRows rows;
    const auto row = [](int id) {
        auto* const made = new EntryRow;
        made->id = id;
        made->name = id % 2 == 0 ? u"Even"_s : u"Odd"_s;
        return RowPointer(made);
    };
    const auto shown = [&many] {
        EXPECT_TRUE(many.IsArranging());
        EXPECT_TRUE(QTest::qWaitFor([&many] { return !many.IsArranging(); }));
        return std::tuple(many.IdAt(0), many.IdAt(many.rowCount() - 1), many.rowCount());
    };
    for (int id = 1; id <= 30000; ++id) rows.append(row(id));
    many.Append(rows);
    many.sort(EntryRow::Id, Qt::DescendingOrder);
    many.Append({row(30002)});
    EXPECT_EQ(shown(), std::tuple(30000, 30002, 30001)) << "what is appended meanwhile comes last";
    many.SetFilter(u"even"_s);
    many.Append({row(30003), row(30004)});
    many.Put(row(30001));
    many.Remove(30000);
    EXPECT_EQ(shown(), std::tuple(30004, 2, 15001));
    many.SetFilter({});
    many.Put(row(30006));
    EXPECT_EQ(shown(), std::tuple(30004, 30006, 30004));
    many.sort(EntryRow::Name, Qt::AscendingOrder);
    EXPECT_EQ(shown(), std::tuple(30004, 1, 30004)) << "the former order stands among equal names";
}

TEST_F(Lists, FollowWhatOthersDo) {
    for (int i = 1; i <= 60; ++i) Store("E" + std::to_string(i));
    const EntryEditor& editor = *window.OpenEntry(2);
    Activate(window);
    Walk({{"F5", "60 entries: *E1, E2, E3"}, {"Down", "60 entries: E1, *E2, E3"}});
    Walk({{"Ctrl+D", "E2 (copy) - Schedule Entry"}, {"Return", "61 entries: E1, E2, E3"}});
    store.Sql("DELETE FROM NOL_Schedule WHERE Id = 61");
    EXPECT_TRUE(QTest::qWaitFor([&] { return InFront().starts_with("60 entries"); }))
        << "made here, deleted there";
    dynamic_cast<EntryTable&>(*table).Choose(2);
    table->sortByColumn(EntryRow::Name, Qt::DescendingOrder);
    const auto shows = [this](const std::string& changed, const std::string& trace) {
        store.Sql("UPDATE NOL_Schedule SET Version = Version + 1, EditorName = " + changed);
        return QTest::qWaitFor([&] { return InFront() == trace; });
    };
    EXPECT_TRUE(shows("'x' || char(8238) WHERE Id = 2", "60 entries: *x\\u202e, E60, E59")) << InFront();
    EXPECT_TRUE(shows("'z' WHERE Id = 5", "60 entries: z, *x\\u202e, E60")) << InFront();
    Walk({{"Ctrl+F'y", "0 of 60 entries: No entry passes the filter."}});
    EXPECT_TRUE(shows("'y' WHERE Id = 3", "1 of 60 entries: *y")) << InFront();
    EXPECT_TRUE(shows("'b' WHERE Id = 3", "0 of 60 entries: No entry passes the filter.")) << InFront();
    EXPECT_EQ(window.statusBar()->currentMessage(), u"No longer in the list: \"b\"."_s);
    store.Sql("DELETE FROM NOL_Schedule WHERE Id = 3");
    EXPECT_TRUE(shows("'yy' WHERE Id = 4", "1 of 59 entries: *yy")) << InFront();
    EXPECT_TRUE(shows("(99 - Id) || 'y'", "59 entries: 98y, 97y, *95y")) << InFront();
    EXPECT_EQ(editor.windowTitle(), u"97y[*] - Schedule Entry"_s) << "nothing was changed in it";
}

TEST_F(Lists, StayAliveWhileTheStoreWaits) {
    Store();
    EntryEditor& editor = *window.OpenEntry(1);
    Activate(editor);
    EXPECT_EQ(window.OpenEntry(1), &editor) << "two would overtake each other";
    const auto other = OpenDatabase(store.Address());
    std::optional<Transaction> lock(std::in_place, *other);
    QTimer::singleShot(700, [&] {
        QWidget* box = nullptr;
        for (auto* const shown : QApplication::topLevelWidgets())
            if (shown->isVisible() && shown != &editor && shown != &window) box = shown;
        ASSERT_NE(box, nullptr);
        told += Shown(*box->findChild<QLabel*>()) + '\n';
        QTest::keyClicks(editor.findChild<QWidget*>(u"name"_s), u"?"_s);
        Press(editor, "Ctrl+S");
        Press(window, "F5");
        EXPECT_THROW(workspace.Entries().VersionOf(1), StoreError) << "would break into the save";
        for (QWidget* widget : {static_cast<QWidget*>(&editor), static_cast<QWidget*>(&window), box})
            EXPECT_FALSE(widget->close());
    });
    QTest::keyClicks(editor.findChild<QWidget*>(u"name"_s), u"!"_s);
    EXPECT_FALSE(editor.Save());
    EXPECT_EQ(told, "Waiting for the store\n" + store.Address() + ": database is locked\n");
    EXPECT_TRUE(editor.isVisible() && editor.isWindowModified());
    QCoreApplication::processEvents();
    EXPECT_EQ(Shown(*editor.findChild<QWidget*>(u"name"_s)), "Nightly!?")
        << "what is typed meanwhile comes then";
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
        "FirstDateTime = substr('2026-10-01 09:302027-01-05 22:152026-03-02 07:45', Id * 16 - 15, 16), "
        "IncludeSundays = substr('YNY', Id, 1), IncludeHolidays = substr('YYN', Id, 1), "
        "SavedAt = substr('2026-03-022026-02-022026-04-02', Id * 10 - 9, 10), "
        "FinalDateTime = substr('2030-01-012029-12-312036-12-31', Id * 10 - 9, 10)");
    Walk({{"F5", "3 entries: *b, A, C"}});
    QString orders;
    for (int sorting = 0; sorting < 2 * EntryRow::columnCount; ++sorting) {
        table->sortByColumn(sorting / 2, sorting % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
        for (int row : {0, 1, 2}) orders += table->model()->index(row, EntryRow::Id).data().toString();
    }
    EXPECT_EQ(orders.toStdString(),
              "123321213312132231231132312213213132312213132231231132312213213312213312");
}

TEST_F(Lists, ActOnSeveralRowsAllOrNone) {
    for (const char* name : {"A 10", "A 2", "C"}) Store(name);
    store.Sql("ALTER TABLE NOL_Schedule ADD COLUMN \"My \"\"note\" TEXT");
    store.Sql("ALTER TABLE NOL_Schedule ADD COLUMN GroupName TEXT");  // another one than the list's
    store.Sql("UPDATE NOL_Schedule SET \"My \"\"note\" = 'it''s ' || Id, ScheduleActive = 'Y'");
    store.Sql("INSERT INTO NOL_Override (NOL_OverrideId, Type, Duration) VALUES (1, 'PLM Study', 60)");
    const std::string before = store.Dump();
    store.Sql("CREATE TABLE Kept AS SELECT * FROM NOL_Schedule WHERE Id = 2");
    window.OpenEntry(2);
    Activate(window);
    Walk({{"F5", "3 entries: *A 10, A 2, C"}});
    table->sortByColumn(EntryRow::Name, Qt::DescendingOrder);  // the one that is refused comes last
    choice = 2;
    struct Act {
        const char* keys;
        std::string told;         // also in the status bar
        std::string rows;         // group, whether active, first run of each; all else is as before for "."
        const char* change = "";  // by others, before
        QMessageBox::StandardButton answer = QMessageBox::Yes;
    };
    const std::string asks = "Do you want to delete 3 entries?", second = "The entry 2 \"A 2\": ";
    const std::string open = " One of them is open in an editor.\n", paused = "1|N|2026-03-02 00:00:00\n";
    const std::string active = "1|Y|2026-03-02 00:00:00\n";
    const std::string deleted = "Deleted 3 entries; Ctrl+Z brings back what is gone.";
    const std::string moved = "2|Y|2026-03-02 00:00:00\n", late = "2|Y|2026-03-12 05:00:00\n";
    const auto thrice = [](const std::string& row) { return row + row + row; };
    const Act acts[] = {
        {"Ctrl+A, Del", asks + open, ".", "", QMessageBox::Cancel},
        {"Del", asks + open + deleted, ""},
        {"Ctrl+Z", "Brought back 3 entries.", "."},
        {"Ctrl+A, Del", asks + '\n' + deleted, ""},
        {"Ctrl+Z", second + "its Id is that of the entry \"A 2\" meanwhile.\n", active,
         "INSERT INTO NOL_Schedule SELECT * FROM Kept"},
        {"Ctrl+Z", "Brought back 3 entries.", ".", "DELETE FROM NOL_Schedule"},
        {"Ctrl+Z", "", "."},
        {"Ctrl+A, Ctrl+P", "Do you want to pause 3 entries?\n", ".", "", QMessageBox::Cancel},
        {"F5, Ctrl+P, Ctrl+G, Ctrl+D", "", "."},  // nothing is chosen while it loads, and then what was
        {"Ctrl+P", "Do you want to pause 3 entries?\nPaused 3 entries.", thrice(paused)},
        {"Ctrl+Shift+P", "Do you want to activate 3 entries?\nActivated 3 entries.", thrice(active)},
        {"Ctrl+G", second + "its study group stays as it was made.\n", thrice(active),
         "UPDATE NOL_Schedule SET RunMode = 'I' WHERE Id = 2"},
        {"Ctrl+G", "Changed the group of 3 entries.", thrice(moved),
         "UPDATE NOL_Schedule SET RunMode = substr('SSS', Id, 1), PurgeInterval = 9999"},  // no page warns
        {"Ctrl+T", "Shifted the start of 3 entries.", thrice(late)},
        {"Ctrl+T", second + "Start Date is after End Date.  Report group can never be run\n", thrice(late),
         "UPDATE NOL_Schedule SET Periodicity = 'D', FinalDateTime = '2026-03-15 00:00:00' WHERE Id = 2"},
        {"Ctrl+D", "Do you want to duplicate 3 entries?\nDuplicated 3 entries.", thrice(late) + thrice(late)},
    };
    for (const auto& [keys, trace, rows, change, reply] : acts) {
        if (*change != '\0') store.Sql(change);
        Activate(window);
        told.clear();
        answer = reply;
        QTimer::singleShot(100, [] {
            if (QApplication::activeModalWidget() == nullptr) return;
            QTest::keyClicks(QApplication::focusWidget(), u"10\t"_s);
            QTest::keyClicks(QApplication::focusWidget(), u"5\r"_s);
        });
        Press(*table, keys);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window.IsLoading(); }));
        EXPECT_EQ(told + window.statusBar()->currentMessage().toStdString(), trace) << keys;
        EXPECT_EQ(rows == "." ? store.Dump()
                              : store.Sql("SELECT RptGrpId, ScheduleActive, FirstDateTime FROM NOL_Schedule"),
                  rows == "." ? before : rows)
            << keys;
        window.statusBar()->clearMessage();
    }
    for (int column = 0; column < EntryRow::columnCount; ++column)
        table->setColumnHidden(column, column != EntryRow::Name && column != EntryRow::Time);
    table->selectRow(1);
    Press(*table, "Up, Shift+Down, Ctrl+C");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "Name\tAt\nC (copy)\t5:00 AM\nC\t5:00 AM\n");
    EXPECT_EQ(store.Sql("SELECT DISTINCT PurgeInterval FROM NOL_Schedule WHERE Id < 4"), "9999\n");
    auto& state = *window.findChild<QComboBox*>();
    QWheelEvent notch({5, 5}, state.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&state, &notch);
    EXPECT_EQ(state.currentIndex(), 0) << "without the focus the wheel is not for it";
    state.setCurrentText(u"Scheduled"_s);
    Walk({{"Ctrl+F'copy", "3 of 6 entries: *C (copy), A 10 (copy), A 2 (copy)"}});
    now += 11;  // the others have had their only run
    EXPECT_TRUE(QTest::qWaitFor([this] { return InFront() == "1 of 6 entries: *A 2 (copy)"; })) << InFront();
    Press(*table, "Ctrl+P");
    EXPECT_EQ(InFront() + window.statusBar()->currentMessage().toStdString(),
              "0 of 6 entries: No entry passes the filter.Paused the entry \"A 2 (copy)\". No longer in the "
              "list: \"A 2 (copy)\".");
}

TEST_F(Lists, MakeOpenCopyDeleteAndQuitByKeys) {
    const std::string asks = "The entry has unsaved changes. Do you want to save them?\n";
    const std::string asksToDelete = "Do you want to delete the entry \"One!\"?\n";
    const std::string fails = "The store fails.\n", one = "The entry 1 \"One!\": ";
    const std::string both = "2 entries: *One!, One (copy)";
    const auto actions = window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(std::ranges::count_if(actions, &QAction::isEnabled), 8) << "need no entry";
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
          {"F5", fails + both, "NOL_Holiday"},
          {"Return", fails + both, "SELECT"},
          {"Del", asksToDelete + both},
          {"Del", asksToDelete + one + fails + both, "FROM NOL_Override", QMessageBox::Yes},
          {"Del", asksToDelete + fails + both, " ", QMessageBox::Yes}});
    EXPECT_TRUE(asked[0].preferred == QMessageBox::Save && asked.back().preferred == QMessageBox::Cancel);
    store.Sql("DELETE FROM NOL_Document");
    store.Sql("UPDATE NOL_Schedule SET Id = 3 WHERE Id = 1");
    const std::string gone = one + "There is no entry 1 in " + store.Address() + ".\n";
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
