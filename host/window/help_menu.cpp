#include "host/window/help_menu.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <span>

#include "host/entries/arguments.h"
#include "host/window/appearance.h"
#include "host/window/qt_text.h"
#include "platform/postgres_database.h"
#include "platform/sqlite_database.h"

namespace NolSchedCtls {

namespace {

struct Key {
    const char* keys;
    const char* meaning;
};

constexpr Key keysOfEntry[] = {
    {"Return", "OK: saves the entry and closes it"},
    {"Ctrl+S", "Apply: saves the entry"},
    {"Esc", "Cancel: closes the entry; unsaved changes are asked about"},
    {"Ctrl+Tab", "The next page; with Shift the one before"},
    {"F1", "Tells what the field is for"},
    {"Alt+letter", "The field whose underlined letter that is"},
};

constexpr Key keysOfFields[] = {
    {"Space", "A box: ticks it or clears it"},
    {"Alt+Down", "A list or a date: opens its entries or its calendar"},
    {"F2", "A date: marks it, to be typed over"},
    {"Up, Down", "A list: the entry before or after; a number, or a time's hour or minute: one more or less"},
    {"PgUp, PgDown", "A number or a time: ten more or less"},
};

QTreeWidgetItem* Group(QTreeWidget& table, const QString& title) {
    auto* const group = new QTreeWidgetItem(&table, {title});
    group->setFirstColumnSpanned(true);
    group->setFlags(Qt::ItemIsEnabled);
    return group;
}

void AddRow(QTreeWidgetItem* group, const QString& keys, const QString& meaning) {
    new QTreeWidgetItem(group, {keys, meaning});
}

void AddRows(QTreeWidget& table, const QString& title, std::span<const Key> keys) {
    QTreeWidgetItem* const group = Group(table, title);
    for (const Key& key : keys) AddRow(group, QString::fromUtf8(key.keys), QString::fromUtf8(key.meaning));
}

// In the order of the menus, and then what stands in none.
QList<QAction*> ActionsOf(const QMainWindow& window) {
    QList<QAction*> actions;
    for (const QAction* const menu : window.menuBar()->actions()) actions += menu->menu()->actions();
    for (QAction* const action : window.findChildren<QAction*>())
        if (!actions.contains(action)) actions.append(action);
    return actions;
}

void AddActions(QTreeWidget& table, const QMainWindow& window) {
    QTreeWidgetItem* const group = Group(table, u"In the list"_s);
    for (const QAction* const action : ActionsOf(window))
        if (!action->shortcut().isEmpty())
            AddRow(group, action->shortcut().toString(QKeySequence::NativeText),
                   WithoutMnemonic(action->text()).remove(u"..."_s) + u": "_s + action->statusTip());
}

void ShowKeys(QMainWindow& window) {
    QDialog dialog(&window);
    dialog.setWindowTitle(u"Keys"_s);
    auto* const table = new QTreeWidget(&dialog);
    table->setHeaderLabels({u"Keys"_s, u"What they do"_s});
    table->setAccessibleName(u"Keys"_s);
    table->setRootIsDecorated(false);
    table->setItemsExpandable(false);
    AddActions(*table, window);
    AddRows(*table, u"In an entry"_s, keysOfEntry);
    AddRows(*table, u"In its fields"_s, keysOfFields);
    table->expandAll();
    table->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    auto* const box = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    QObject::connect(box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* const column = new QVBoxLayout(&dialog);
    column->addWidget(table);
    column->addWidget(box);
    const QSize wanted(dialog.fontMetrics().averageCharWidth() * 100,
                       dialog.fontMetrics().lineSpacing() * 34);
    FitToScreen(dialog, wanted);
    dialog.exec();
}

QString ServerEngineText() {
    try {
        return ToQt(ServerEngine());
    } catch (const NolSchedError&) {
        return u"libpq is not installed"_s;
    }
}

void ShowAbout(QMainWindow& window) {
    QMessageBox::about(&window, u"About nolsched-editor"_s,
                       u"<h3>nolsched-editor %1</h3><p>Lists schedule entries and edits them.</p>"
                       "<p>Qt %2<br>%3<br>%4</p>"_s.arg(ToQt(Version()), QString::fromUtf8(qVersion()),
                                                        ToQt(FileEngine()), ServerEngineText()));
}

}  // namespace

void AddHelpMenu(QMainWindow& window) {
    QMenu* const menu = window.menuBar()->addMenu(u"&Help"_s);
    QAction* const keys = menu->addAction(u"&Keys"_s, &window, [&window] { ShowKeys(window); });
    keys->setShortcut(QKeySequence(u"F1"_s));
    keys->setStatusTip(u"Tells what the keys do"_s);
    menu->addAction(u"&About nolsched-editor"_s, &window, [&window] { ShowAbout(window); })
        ->setStatusTip(u"Tells the versions of the program and of what it stands on"_s);
}

}  // namespace NolSchedCtls
