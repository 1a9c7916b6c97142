#include "host/window/main_window.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

class Lists : public Windows {
  protected:
    // How many there are and the first three, the chosen one with a star.
    std::string Listed() {
        Activate(window);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window.IsLoading(); }, 20000));
        const auto& model = *table->model();
        QStringList names;
        for (int row = 0; row < std::min(model.rowCount(), 3); ++row)
            names.append((row == table->currentIndex().row() ? u"*"_s : QString()) +
                         model.index(row, EntryRow::Name).data().toString());
        return std::to_string(model.rowCount()) + ": " + names.join(u", "_s).toStdString();
    }
    static EntryEditor& Opened() {
        QCoreApplication::processEvents();
        return dynamic_cast<EntryEditor&>(*QApplication::activeWindow());
    }

    MainWindow window{workspace, dialogs};
    QTableView* table = window.findChild<QTableView*>();
};

TEST_F(Lists, SortAndFilterWhatTheyLoadInPieces) {
    for (int i = 1; i <= 120; ++i) Store("Entry " + std::to_string(i));
    EXPECT_EQ(Listed(), "120: *Entry 1, Entry 2, Entry 3");
    table->sortByColumn(EntryRow::Name, Qt::DescendingOrder);
    EXPECT_EQ(Listed(), "120: Entry 99, Entry 98, Entry 97");
    Press(window, "Ctrl+F");
    QTest::keyClicks(window.focusWidget(), u"once ENTRY 7 3/2/2026 north"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return table->model()->rowCount() < 120; }));
    EXPECT_EQ(Listed(), "21: *Entry 97, Entry 87, Entry 79");
    QTest::keyClicks(window.focusWidget(), u" nowhere"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return table->model()->rowCount() == 0; }));
}

TEST_F(Lists, MakeOpenCopyDeleteAndReloadByKeys) {
    Store("Entry 1");
    EXPECT_EQ(Listed(), "1: *Entry 1");
    Press(window, "Ctrl+Shift+N");
    EXPECT_EQ(Shown(Find(Opened(), "general.txtRptGrp")), "North Cells");
    Press(Opened(), Box::Ok);
    EXPECT_EQ(Listed(), "2: Entry 1, *New Immediate Entry");
    Press(*table, "Up, Return");
    Type(Opened(), {{"schedule.cboPeriod", "D"}});
    QTest::keyClicks(Opened().findChild<QLineEdit*>(u"name"_s), u"+"_s);
    Press(Opened(), Box::Ok);
    EXPECT_EQ(Listed(), "2: *Entry 1+, New Immediate Entry");
    Press(window, "Ctrl+D");
    Press(Opened(), Box::Ok);
    EXPECT_EQ(Listed(), "3: Entry 1+, New Immediate Entry, *Entry 1+ (copy)");
    EXPECT_EQ(table->model()->index(2, EntryRow::Schedule).data(), u"Daily every 1 day(s)"_s);
    Press(*table, "Del");  // not confirmed
    answer = QMessageBox::Yes;
    Press(*table, "Del");
    EXPECT_EQ(Listed(), "2: Entry 1+, *New Immediate Entry");
    store.Sql("UPDATE NOL_Schedule SET EditorName = 'By others' WHERE Id = 1");
    Press(window, "F5");
    EXPECT_EQ(Listed(), "2: By others, *New Immediate Entry");
}

}  // namespace NolSchedCtls::Testing
