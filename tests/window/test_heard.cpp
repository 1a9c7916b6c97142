// What a screen reader hears, asked of the accessibility tree.
#include "host/window/main_window.h"
#include "host/window/outlook_pane.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

// What was said last.
std::string Said(QWidget& window) {
    const QAccessibleInterface& tree = *QAccessible::queryAccessibleInterface(&window);
    for (int place = 0; place < tree.childCount(); ++place)
        if (const auto* part = tree.child(place); part->role() == QAccessible::Notification)
            return part->state().invisible ? "hidden" : part->text(QAccessible::Name).toStdString();
    return "";
}

std::string HeardAt(const QAccessibleInterface* place) {
    return place == nullptr ? "nothing" : place->text(QAccessible::Name).toStdString();
}

TEST_F(Windows, WhatBecomesOfAnActIsSaid) {
    const std::string refusal =
        "\"25:00\" is no time of day; it is typed to the minute, as 22:30, 2230, 10:30 PM, 7 or noon.";
    const struct {
        const char* field;
        const char* keys;
        std::string said;
        std::string description;
    } cases[] = {
        {"schedule.cboPeriod", "W", "Weekly on Sunday every 1 week(s)",
         "How the entry recurs; the rest of the sentence follows it."},
        {"schedule.dtpStartTime", "25:00\t", refusal, refusal},
        {"schedule.SSDStartDate", "13/1/2027", "", "The day of the first run; Alt+Down opens a calendar."},
        {"schedule.SSDStartDate", "\t",
         "\"13/1/2027\" is no date; it is typed as 12/24/2026, 2026-12-24 or 24 Dec 2026.",
         "\"13/1/2027\" is no date; it is typed as 12/24/2026, 2026-12-24 or 24 Dec 2026."},
        {"schedule.SSDStartDate", "1/5/2027\t", "", "The day of the first run; Alt+Down opens a calendar."},
        {"schedule.cbExcludeDay(7)", "F1", "Ticked if the entry does not run on holidays.",
         "Ticked if the entry does not run on holidays."},
    };
    EntryEditor& editor = OpenNew();
    for (const auto& [field, keys, said, description] : cases) {
        QWidget& widget = Find(editor, field);
        if (auto* const former = editor.findChild<QWidget*>(u"announcement"_s)) former->setAccessibleName({});
        if (keys == std::string_view("F1")) {
            widget.setFocus();
            Press(widget, keys);
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        } else
            Type(editor, {{field, keys}});
        QCoreApplication::processEvents();
        EXPECT_EQ(Said(editor), said) << field;
        EXPECT_EQ(
            QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description).toStdString(),
            description);
    }
}

TEST_F(Windows, RowsHoursAndDaysAreHeardWhole) {
    Store();
    store.Sql(
        "UPDATE NOL_Schedule SET Periodicity = 'D', FirstDateTime = '2026-03-02 02:00:00', Frequency = 2");
    store.Sql("INSERT INTO NOL_Override (NOL_OverrideId, Type) VALUES (1, 'HOM Study')");
    MainWindow window{workspace, dialogs};
    Activate(window);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.Pane().IsCounting(); }));
    const auto tree = [&](const char* name) {
        return QAccessible::queryAccessibleInterface(window.findChild<QWidget*>(QString::fromUtf8(name)));
    };
    const auto cell = [](QAccessibleInterface* table, int row, int column) {
        return HeardAt(table->tableInterface()->cellAt(row, column));
    };
    EXPECT_EQ(
        cell(QAccessible::queryAccessibleInterface(window.findChild<EntryTable*>()), 0, EntryRow::Name),
        "Nightly, North Cells: Daily every 2 day(s). Scheduled, next run 3/2/2026 2:00 AM. Overrides: HOM");
    EXPECT_EQ(cell(QAccessible::queryAccessibleInterface(window.findChild<QTableWidget*>()), 2, 2),
              "Wed Mar 4 2:00 AM: 1 run - North Cells 1");
    EXPECT_EQ(HeardAt(tree("qt_calendar_calendarview")->child(8 * 4 + 1)), "Sunday, March 8, 2026: 1 run");
    window.findChild<QWidget*>(u"qt_calendar_calendarview"_s)->setFocus();
    EXPECT_EQ(HeardAt(tree("qt_calendar_calendarview")->focusChild()), "Monday, March 2, 2026: 1 run");
    window.OpenEntry(1)->Save();
    EXPECT_EQ(Said(window), "Saved");
}

}  // namespace NolSchedCtls::Testing
