// The menus and the tool bar of the main window.
#include <QMenuBar>
#include <QToolBar>

#include "host/window/main_window.h"
#include "host/window/outlook_pane.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

struct MainWindow::Command {
    const char* text = nullptr;  // nothing: a line between the others
    const char* shortcut = nullptr;
    const char* tip = nullptr;
    void (*run)(MainWindow&) = nullptr;
    Need need = Need::Nothing;
    bool isInBar = false;
    bool isOfRows = false;  // in their context menu, too
};

namespace {

void AddLine(QWidget& widget) {
    auto* const line = new QAction(&widget);
    line->setSeparator(true);
    widget.addAction(line);
}

}  // namespace

void MainWindow::MakeMenus() {
    using Window = MainWindow&;
    using enum Need;
    static constexpr Command entryCommands[] = {
        {"&New", "Ctrl+N", "Makes a scheduled entry", [](Window window) { window.OpenNew(); }, Nothing, true},
        {"New &Immediate", "Ctrl+Shift+N", "Makes an entry that runs at once",
         [](Window window) { window.NewImmediate(); }, Nothing, true},
        {"&Edit", "Ctrl+E", "Opens the chosen entry (also Enter, or a double click)",
         [](Window window) { window.Edit(); }, OneChosen, true, true},
        {"&Duplicate", "Ctrl+D", "Opens a copy of the chosen entry, or copies the chosen ones",
         [](Window window) { window.Duplicate(); }, SomeChosen, true, true},
        {"De&lete", "Del", "Deletes the chosen entries", [](Window window) { window.acts->Delete(); },
         SomeChosen, true, true},
        {},
        {"&Pause", "Ctrl+P", "The chosen entries do not run until they are activated",
         [](Window window) { window.acts->Pause(); }, ActiveChosen, false, true},
        {"&Activate", "Ctrl+Shift+P", "The chosen entries run again",
         [](Window window) { window.acts->Activate(); }, PausedChosen, false, true},
        {"Change &Group...", "Ctrl+G", "Gives the chosen entries another study group",
         [](Window window) { window.acts->ChangeGroup(); }, SomeChosen, false, true},
        {"Shift &Start...", "Ctrl+T", "Moves the start of the chosen entries by days and hours",
         [](Window window) { window.acts->ShiftStart(); }, SomeChosen, false, true},
        {},
        {"&Refresh", "F5", "Reads the list anew", [](Window window) { window.Refresh(); }},
        {"&Quit", "Ctrl+Q", "Closes all windows", [](Window window) { window.close(); }},
    };
    static constexpr Command editCommands[] = {
        {"&Undo Delete", "Ctrl+Z", "Brings back what was deleted last, as it was",
         [](Window window) { window.acts->UndoDelete(); }, Deletion},
        {"&Copy", "Ctrl+C", "Copies the chosen rows for other programs",
         [](Window window) { window.acts->Copy(); }, SomeChosen, false, true},
        {"&Find", "Ctrl+F", "Goes to the filter", [](Window window) { window.filter->TakeFocus(); }},
        {"Choose &All", "Ctrl+A", "Chooses all entries of the list",
         [](Window window) { window.table->selectAll(); }},
        {"Choose N&one", "Ctrl+Shift+A", "Shows the runs of all entries",
         [](Window window) { window.ChooseNone(); }},
    };
    QToolBar* const bar = addToolBar(u"Tool Bar"_s);
    bar->setObjectName(u"entryBar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    MakeMenu(u"&Entry"_s, entryCommands, *bar);
    MakeMenu(u"E&dit"_s, editCommands, *bar);
    MakeViewMenu(*bar);
}

void MainWindow::MakeMenu(const QString& title, std::span<const Command> commands, QToolBar& bar) {
    QMenu* const menu = menuBar()->addMenu(title);
    for (const Command& command : commands) {
        if (command.text == nullptr) {
            menu->addSeparator();
            AddLine(*table);
            continue;
        }
        auto* const action = new QAction(QString::fromUtf8(command.text), this);
        action->setShortcut(QKeySequence(QString::fromUtf8(command.shortcut)));
        action->setStatusTip(QString::fromUtf8(command.tip));
        action->setToolTip(action->statusTip());  // described so to a screen reader
        connect(action, &QAction::triggered, this, [this, &command] { command.run(*this); });
        menu->addAction(action);
        if (command.isInBar) bar.addAction(action);
        if (command.isOfRows) table->addAction(action);
        actions.push_back({action, command.need});
    }
}

void MainWindow::MakeViewMenu(QToolBar& bar) {
    QMenu* const menu = menuBar()->addMenu(u"&View"_s);
    menu->addAction(outlook);
    outlook->setShortcut(QKeySequence(u"F9"_s));
    outlook->setStatusTip(u"Shows when the entries run, beside the list"_s);
    outlook->setCheckable(true);
    outlook->setChecked(true);
    bar.toggleViewAction()->setStatusTip(u"Shows the buttons over the list"_s);
    menu->addAction(bar.toggleViewAction());
    table->AddMenus(*menu);
}

}  // namespace NolSchedCtls
