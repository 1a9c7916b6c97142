#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTableView>

#include "host/window/main_window.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

namespace {

class Lists : public Windows {
  protected:
    void StoreEntries(int count) {
        EntrySession session(workspace, EntrySession::NewEntry{false, 1, "Entry 1"});
        session.Load();
        session.Save();
        const Database database(store.Address());
        std::string columns = store.Sql("SELECT group_concat(name) FROM pragma_table_info('NOL_Schedule')");
        columns = columns.substr(3, columns.size() - 4);  // without the Id and the line's end
        std::string values = columns;
        values.replace(values.find("EditorName"), 10, "'Entry ' || n");
        store.Sql("WITH RECURSIVE k(n) AS (SELECT 2 UNION ALL SELECT n + 1 FROM k WHERE n < " +
                  std::to_string(count) + ") INSERT INTO NOL_Schedule (" + columns + ") SELECT " + values +
                  " FROM NOL_Schedule, k");
    }
    std::unique_ptr<MainWindow> Show() {
        auto window = std::make_unique<MainWindow>(
            workspace, Dialogs{[this](QWidget*, const Question&) { return answer; },
                               [](QWidget*, const QString&, const QString&, const QStringList& offered, int) {
                                   return offered.value(1);
                               }});
        Activate(*window);
        table = window->findChild<QTableView*>();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window->IsLoading(); }, 20000));
        return window;
    }
    std::string Names() const {
        QStringList names;
        for (int row = 0; row < table->model()->rowCount() && row < 3; ++row)
            names.append(table->model()->index(row, EntryRow::Name).data().toString());
        return std::to_string(table->model()->rowCount()) + ": " + names.join(u", "_s).toStdString();
    }
    static EntryEditor* Opened(QWidget* exceptFor = nullptr) {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* editor = qobject_cast<EntryEditor*>(widget); editor != nullptr && editor != exceptFor)
                return editor;
        return nullptr;
    }

    QTableView* table = nullptr;
};

TEST_F(Lists, SortAndFilterWhatTheyLoadInPieces) {
    StoreEntries(2000);
    const auto window = Show();
    EXPECT_EQ(Names(), "2000: Entry 1, Entry 2, Entry 3");
    table->sortByColumn(EntryRow::Name, Qt::DescendingOrder);
    EXPECT_EQ(Names(), "2000: Entry 999, Entry 998, Entry 997");
    QTest::keySequence(window.get(), QKeySequence(u"Ctrl+F"_s));
    QTest::keyClicks(window->focusWidget(), u"once ENTRY 77"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() < 2000; }));
    EXPECT_EQ(Names(), "38: Entry 977, Entry 877, Entry 779");
    QTest::keyClicks(window->focusWidget(), u" nowhere"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return table->model()->rowCount() == 0; }));
}

TEST_F(Lists, OpenCopyAndDeleteByKeys) {
    StoreEntries(3);
    const auto window = Show();
    QTest::keyClick(table, Qt::Key_Down);
    QTest::keyClick(table, Qt::Key_Return);
    EntryEditor* const editor = Opened();
    ASSERT_NE(editor, nullptr);
    Type(*editor, "schedule.cboPeriod", "D");
    editor->findChild<QLineEdit*>(u"name"_s)->clear();
    QTest::keyClicks(editor->findChild<QLineEdit*>(u"name"_s), u"Renamed"_s);
    Press(*editor, QDialogButtonBox::Apply);
    EXPECT_EQ(Names(), "3: Entry 1, Renamed, Entry 3");
    EXPECT_EQ(table->model()->index(1, EntryRow::Schedule).data().toString(), u"Daily every 1 day(s)"_s);
    QTest::keySequence(window.get(), QKeySequence(u"Ctrl+D"_s));
    EntryEditor* const copy = Opened(editor);
    ASSERT_NE(copy, nullptr);
    Press(*copy, QDialogButtonBox::Ok);
    EXPECT_EQ(table->model()->rowCount(), 4);
    EXPECT_EQ(store.Sql("SELECT Id, Periodicity FROM NOL_Schedule WHERE EditorName = 'Renamed (copy)'"),
              "4|D\n");
    for (const auto reply : {QMessageBox::Cancel, QMessageBox::Yes}) {
        answer = reply;
        QTest::keyClick(table, Qt::Key_Delete);
    }
    EXPECT_EQ(store.Sql("SELECT COUNT(*) FROM NOL_Schedule"), "3\n");
    EXPECT_EQ(table->model()->rowCount(), 3);
}

TEST_F(Lists, AskForTheGroupOfAnImmediateEntry) {
    const auto window = Show();
    QTest::keySequence(window.get(), QKeySequence(u"Ctrl+Shift+N"_s));
    EntryEditor* const editor = Opened();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(Find<QLineEdit>(*editor, "general.txtRptGrp").text(), u"North Cells"_s);
    Press(*editor, QDialogButtonBox::Ok);
    EXPECT_EQ(Names(), "1: New Immediate Entry");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
