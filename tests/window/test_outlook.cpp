#include "host/window/main_window.h"
#include "host/window/outlook_pane.h"
#include "host/window/run_calendar.h"
#include "host/window/week_view.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

TEST_F(Windows, ALineTellsAfterEachActWhatTheEntryWouldRun) {
    const auto period = [](const char* mode) { return std::pair("schedule.cboPeriod", mode); };
    const auto end = [](const char* day) { return std::pair("schedule.SSDEndDate", day); };
    const std::pair<const char*, const char*> hasEnd = {"schedule.chkEndDate", " "};
    const std::pair<const char*, const char*> isFriday = {"schedule.cboDayName", "F"};
    const struct {
        Keys keys;
        const char* line;
        const char* failing = "";
    } cases[] = {
        {{}, "Would not run: Mar 2, 2026 12:00 AM has passed"},
        {{{"schedule.SSDStartDate", "3/4/2026\t"}}, "Next: Wed Mar 4 12:00 AM"},
        {{period("D")}, "Next: Tue Mar 3 12:00 AM, Wed Mar 4 12:00 AM, ..."},
        {{period("D"), hasEnd, end("3/3/2026\t")}, "Next: Tue Mar 3 12:00 AM, then no more"},
        {{period("D"), hasEnd, end("3/12/2026\t")},
         "Next: Tue Mar 3 12:00 AM, Wed Mar 4 12:00 AM, ... 10 until Mar 12, 2026"},
        {{period("H"), hasEnd, end("3/1/2027\t"), {"schedule.dtpStartTime", "9p\t"}},
         "Next: Mon Mar 2 9:00 PM, Mon Mar 2 10:00 PM, ... more than 1,000 until Mar 1, 2027"},
        {{period("M"), {"schedule.cboFrequency", "9"}},
         "Next: Tue Dec 1 12:00 AM, Wed Sep 1, 2027 12:00 AM, ..."},
        {{period("W"), isFriday, hasEnd, end("3/5/2026\t")},
         "Never runs: the end comes before the first Friday!"},
        {{{"schedule.dtpStartTime", "25\t"}},
         "\"25\" is no time of day; it is typed to the minute, as 22:30, 2230, 10:30 PM, 7 or noon.!"},
        {{period("D")}, "The outlook cannot be read: The store fails.!", "NOL_Holiday"},
    };
    for (const auto& [keys, line, statement] : cases) {
        failing = statement;
        EntryEditor& editor = OpenNew();
        Type(editor, keys);
        const int changes = editor.Session().Changes();
        const auto& label = *editor.findChild<QLabel*>(u"outlook"_s);
        const auto text = [&] {
            return Shown(label) + (label.foregroundRole() == QPalette::BrightText ? "!" : "");
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return text() == line; })) << text();
        EXPECT_EQ(editor.Session().Changes(), changes);
    }
}

TEST_F(Windows, APaneCountsTheWeekAlsoBeforeAnEntryIsChosen) {
    OutlookPane pane(nullptr);
    Activate(pane);
    ASSERT_TRUE(QTest::qWaitFor([&] { return pane.findChild<QTableWidget*>() != nullptr; }));
    pane.ShowAll({});
    pane.ShowChosen({}, {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pane.IsCounting(); }));
    EXPECT_NE(pane.findChild<QTableWidget*>()->verticalHeaderItem(0), nullptr);
    const auto tellsCounting = [&] {
        return std::ranges::any_of(pane.findChildren<QLabel*>(),
                                   [](const QLabel* label) { return label->text() == u"Counting..."_s; });
    };
    pane.ShowChosen(EntryRows(10001, RowPointer(new EntryRow)), u"10,001 entries"_s);
    EXPECT_TRUE(tellsCounting()) << "of many that takes its time";
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pane.IsCounting(); }));
    EXPECT_FALSE(tellsCounting());
}

TEST_F(Windows, APaneTellsWhatTheChosenEntriesRunAndHowBusyTheWeekIs) {
    for (const char* name : {"Day", "Six", "Fri"}) Store(name);
    store.Sql(
        "UPDATE NOL_Schedule SET RptGrpId = Id, Periodicity = substr('DHW', Id, 1), WhichWeekday = 6, "
        "IncludeHolidays = 'N', "
        "Frequency = CASE Id WHEN 2 THEN 6 ELSE 1 END, IncludeFridays = substr('YYN', Id, 1), "
        "FirstDateTime = '2026-03-02 02:00:00'");
    MainWindow window{workspace, dialogs};
    Activate(window);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.Pane().IsCounting(); }));
    auto& table = *window.findChild<EntryTable*>();
    auto& calendar = dynamic_cast<RunCalendar&>(*window.Pane().findChild<QCalendarWidget*>());
    auto& week = *window.Pane().findChild<QTableWidget*>();
    auto& runs = *window.Pane().findChild<QListWidget*>();
    const auto labels = window.Pane().widget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    const auto label = [&](int place) { return Shown(*labels[place]); };
    // Whose runs; of which day or next ones, how many and the first; on March 8; what the week view tells.
    const auto trace = [&] {
        const auto* const first = runs.item(0);
        return label(0) + "; " + label(1) + " " + std::to_string(runs.count()) + " " +
               (first == nullptr ? "" : first->text().toStdString()) + "; " +
               std::to_string(calendar.CountOf({2026, 3, 8})) + "; " + label(3);
    };
    const std::string busiest = "; Busiest: Mon Mar 2 2:00 AM: 2 runs - North Cells 1, South Cells 1";
    const struct {
        std::function<void()> act;
        std::string trace;
    } steps[] = {
        {[] {}, "Day; Next runs 20 Mon Mar 2 2:00 AM   Day; 1" + busiest},
        {[&] { Press(table, "Ctrl+A"); }, "3 entries; Next runs 20 Mon Mar 2 2:00 AM   Day; 5" + busiest},
        {[&] { Press(table, "Down"); }, "Six; Next runs 20 Mon Mar 2 2:00 AM   Six; 4" + busiest},
        {[&] {
             calendar.setSelectedDate({2026, 3, 8});
         },
         "Six; Sun Mar 8: 4 runs 4 2:00 AM   Six; 4" + busiest},
        {[&] { Press(window, "Ctrl+Shift+A"); },
         "All entries; Sun Mar 8: 5 runs 5 2:00 AM   Day; 5" + busiest},
        {[&] { window.Pane().findChild<QToolButton*>(u"back"_s)->click(); },
         "All entries; Next runs 20 Mon Mar 2 2:00 AM   Day; 5" + busiest},
        {[&] { now += 0.15; },
         "All entries; Next runs 20 Mon Mar 2 8:00 AM   Six; 5; Busiest: Tue Mar 3 2:00 AM: 2 runs - North "
         "Cells 1, "
         "South Cells 1"},
        {[&] { week.setCurrentCell(4, 20); },
         "All entries; Next runs 20 Mon Mar 2 8:00 AM   Six; 5; Fri Mar 6 8:00 PM: 1 run - South Cells 1"},
        {[&] { Press(table, "Down"); },
         "Fri - Never runs: Friday is excluded; No next run 0 ; 0; Fri Mar 6 8:00 PM: 1 run - South Cells 1"},
        {[&] { store.Sql("DELETE FROM NOL_Schedule WHERE Id = 2"); },
         "Fri - Never runs: Friday is excluded; No next run 0 ; 0; Fri Mar 6 8:00 PM: no runs"},
    };
    for (const auto& [act, wanted] : steps) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return !window.IsLoading(); }));
        act();
        EXPECT_TRUE(QTest::qWaitFor([&] { return trace() == wanted; })) << trace() << "\nnot " << wanted;
    }
    EXPECT_EQ(table.model()->index(0, EntryRow::NextRun).data(), u"3/3/2026 2:00 AM"_s);
    window.OpenEntry(3)->Save();
    EXPECT_EQ(window.statusBar()->currentMessage(), u"Saved. Fri - Never runs: Friday is excluded"_s);
    const QModelIndex state = table.model()->index(1, EntryRow::State);
    EXPECT_EQ(state.data(Qt::ForegroundRole).value<QColor>(), qApp->palette().color(QPalette::BrightText));
    const QLabel& line = *window.OpenEntry(1)->findChild<QLabel*>(u"outlook"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return line.text().startsWith(u"Next: Tue Mar 3"); }));
    store.Sql("UPDATE NOL_Schedule SET Frequency = 0 WHERE Id = 3");
    store.Sql("INSERT INTO NOL_Holiday VALUES ('2026-03-03', 'Feast'), ('soon', '')");
    EXPECT_TRUE(QTest::qWaitFor([&] { return line.text().startsWith(u"Next: Wed Mar 4"); })) << Shown(line);
    EXPECT_TRUE(QTest::qWaitFor([&] { return label(0).starts_with("Fri - Cannot be shown: "); })) << label(0);
    EXPECT_TRUE(window.statusBar()->findChildren<QLabel*>()[1]->text().contains(u"\"soon\""));
    EXPECT_GE(table.columnWidth(EntryRow::State),
              static_cast<QAbstractItemView&>(table).sizeHintForColumn(EntryRow::State));
    window.resize(600, 440);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), QSize(600, 440));
    EXPECT_GE(labels[0]->height(), labels[0]->heightForWidth(labels[0]->width()));
    Activate(window);
    for (const auto& [size, isShown] : {std::pair(QSize(400, 300), false), {QSize(1100, 800), true}}) {
        window.resize(size);
        QCoreApplication::processEvents();
        EXPECT_EQ(window.size(), size);
        EXPECT_EQ(window.Pane().isVisible(), isShown);
        Press(window, "F9");
        EXPECT_EQ(window.Pane().isVisible(), !isShown);
        Press(window, "F9");
    }
    OutlookPane unfilled(nullptr);
    Activate(unfilled);
    EXPECT_TRUE(QTest::qWaitFor([&] { return unfilled.widget() != nullptr; }));
    QTest::qWait(100);  // nothing comes
    EXPECT_EQ(Shown(*unfilled.widget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)[1]), "");
}

}  // namespace NolSchedCtls::Testing
