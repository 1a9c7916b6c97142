#include "host/window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QSettings>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolBar>
#include <QVBoxLayout>
#include <cmath>
#include <optional>
#include <utility>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"
#include "host/window/accessibility.h"
#include "host/window/appearance.h"
#include "host/window/outlook_pane.h"
#include "host/window/outlook_splitter.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

constexpr int blinkMilliseconds = 300;
constexpr int filterMilliseconds = 150;
constexpr int watchMilliseconds = 1000;
constexpr int troubledWatchMilliseconds = 10'000;
constexpr std::size_t mostReloaded = 50;  // entries one by one; of more the list is loaded anew

double HourOf(DateTime moment) { return std::floor(moment * hoursOfDay); }

// The choice is a whole row; no cell of it is marked on its own.
class RowDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_HasFocus, false);
    }
};

}  // namespace

MainWindow::MainWindow(Workspace& workspaceA, Dialogs dialogsA)
    : workspace(workspaceA),
      dialogs(std::move(dialogsA)),
      patience(workspace.Store()),
      loader(workspace, list),
      watch(workspace.Store()) {
    setWindowTitle(u"Schedule Entries - %1"_s.arg(ToQt(workspace.Store().Name())));
    FitToScreen(*this, {1240, 860});
    MakeFilter();
    MakeTable();
    MakeActions();
    MakePane();
    MakeStatus();
    connect(&loader, &EntryLoader::Progress, this, &MainWindow::ShowProgress);
    connect(&loader, &EntryLoader::Finished, this, [this] {
        progress->hide();
        ShowCount();
        ShowTroubles();
        SelectOrFirst(CurrentRowId() == 0 ? wantedId : CurrentRowId());
        ShowOutlook();
    });
    connect(&watchTimer, &QTimer::timeout, this, &MainWindow::FollowOthers);
    table->setFocus();
    FollowOthers();
    Refresh();
    ShowSelection();
}

MainWindow::~MainWindow() { qDeleteAll(editors); }

void MainWindow::MakeActions() {
    struct Command {
        const char* text;
        const char* shortcut;
        const char* tip;
        void (MainWindow::*run)();
        bool isForEntry;
        bool isInToolBar;
    };
    static constexpr Command commands[] = {
        {"&New", "Ctrl+N", "Makes a scheduled entry", &MainWindow::New, false, true},
        {"New &Immediate", "Ctrl+Shift+N", "Makes an entry that runs at once", &MainWindow::NewImmediate,
         false, true},
        {"&Edit", "Ctrl+E", "Opens the chosen entry (also Enter, or a double click)", &MainWindow::Edit, true,
         true},
        {"&Duplicate", "Ctrl+D", "Opens a copy of the chosen entry", &MainWindow::Duplicate, true, true},
        {"De&lete", "Del", "Deletes the chosen entry", &MainWindow::Delete, true, true},
        {"&Find", "Ctrl+F", "Goes to the filter", &MainWindow::FindEntry, false, false},
        {"Choose N&one", "Ctrl+Shift+A", "Shows the runs of all entries", &MainWindow::ChooseNone, false,
         false},
        {"&Refresh", "F5", "Reads the list anew", &MainWindow::Refresh, false, false},
        {"&Quit", "Ctrl+Q", "Closes all windows", &MainWindow::Quit, false, false},
    };

    QMenu* const menu = menuBar()->addMenu(u"&Entry"_s);
    QToolBar* const bar = addToolBar(u"Entry"_s);
    bar->setObjectName(u"entryBar"_s);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    for (const Command& command : commands) {
        auto* const action = new QAction(QString::fromUtf8(command.text), this);
        action->setShortcut(QKeySequence(QString::fromUtf8(command.shortcut)));
        action->setStatusTip(QString::fromUtf8(command.tip));
        action->setToolTip(action->statusTip());  // described so to a screen reader
        connect(action, &QAction::triggered, this, [this, &command] { (this->*command.run)(); });
        menu->addAction(action);
        if (command.isInToolBar) bar->addAction(action);
        if (command.isForEntry) entryActions.append(action);
    }
    auto* const spacer = new QWidget(bar);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(spacer);
    bar->addWidget(filter);
}

void MainWindow::MakeFilter() {
    filter = new QLineEdit(this);
    filter->setPlaceholderText(u"Filter"_s);
    Explain(*filter, u"Filter"_s, u"Shows the entries that hold all of these words."_s);
    filter->setClearButtonEnabled(true);
    filter->setFixedWidth(filter->fontMetrics().averageCharWidth() * 36);
    filterDelay.setSingleShot(true);
    filterDelay.setInterval(filterMilliseconds);
    connect(filter, &QLineEdit::textChanged, &filterDelay, qOverload<>(&QTimer::start));
    connect(&filterDelay, &QTimer::timeout, this, &MainWindow::ApplyFilter);
    connect(filter, &QLineEdit::returnPressed, this, [this] { table->setFocus(); });
}

void MainWindow::MakeTable() {
    table = new QTableView(this);
    table->setModel(&list);
    table->setItemDelegate(new RowDelegate(table));
    Explain(*table, u"Entries"_s, u"The entries; Enter opens the chosen one."_s);
    table->setSelectionBehavior(QTableView::SelectRows);
    table->setSelectionMode(QTableView::ExtendedSelection);
    table->setEditTriggers(QTableView::NoEditTriggers);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    table->setFrameShape(QFrame::NoFrame);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() * 9 / 5);
    QHeaderView* const header = table->horizontalHeader();
    header->setHighlightSections(false);
    header->setMinimumHeight(table->verticalHeader()->defaultSectionSize());
    header->setSortIndicator(EntryRow::Id, Qt::AscendingOrder);
    const int character = table->fontMetrics().averageCharWidth();
    constexpr int widths[] = {8, 22, 17, 48, 23, 20, 24, 14};
    for (int column = 0; column < EntryRow::End; ++column)
        table->setColumnWidth(column, character * widths[column]);
    header->setStretchLastSection(true);
    table->setSortingEnabled(true);
    connect(table, &QTableView::activated, this, &MainWindow::Edit);
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::ShowSelection);
    hint = new QLabel(table);
    hint->setAlignment(Qt::AlignCenter);
    hint->setEnabled(false);
    auto* const over = new QVBoxLayout(table);
    over->addWidget(hint);
    hint->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void MainWindow::MakePane() {
    auto* const splitter = new OutlookSplitter(*MakeOutlookAction(), this);
    pane = new OutlookPane(splitter);
    splitter->addWidget(table);
    splitter->addWidget(pane);
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({width(), pane->fontMetrics().averageCharWidth() * 56});
    setCentralWidget(splitter);
    connect(pane, &OutlookPane::Opened, this, &MainWindow::OpenEntry);
    choiceDelay.setSingleShot(true);
    connect(&choiceDelay, &QTimer::timeout, this, &MainWindow::ShowChosen);
}

QAction* MainWindow::MakeOutlookAction() {
    QAction* const outlook = menuBar()->addMenu(u"&View"_s)->addAction(u"&Outlook"_s);
    outlook->setShortcut(QKeySequence(u"F9"_s));
    outlook->setStatusTip(u"Shows when the entries run, beside the list"_s);
    outlook->setCheckable(true);
    outlook->setChecked(true);
    return outlook;
}

void MainWindow::MakeStatus() {
    count = new QLabel(this);
    progress = new QProgressBar(this);
    progress->setMaximumWidth(count->fontMetrics().averageCharWidth() * 30);
    progress->setTextVisible(false);
    progress->setAccessibleName(u"Loading"_s);
    progress->hide();
    troubles = new QLabel(this);
    troubles->setTextFormat(Qt::PlainText);
    troubles->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    troubles->setForegroundRole(QPalette::BrightText);
    statusBar()->addPermanentWidget(progress);
    statusBar()->addPermanentWidget(count);
    statusBar()->addWidget(troubles, 1);
    blink.setSingleShot(true);
    blink.setInterval(blinkMilliseconds);
    connect(&blink, &QTimer::timeout, this, [this] { progress->setVisible(loader.IsLoading()); });
}

void MainWindow::ShowProgress(int loaded, int total) {
    const auto quarters = [total](int part) { return total == 0 ? 0 : std::int64_t{part} * 4 / total; };
    std::optional<Silence> silence;  // a screen reader is told of each quarter
    if (progress->maximum() == total && quarters(progress->value()) == quarters(loaded)) silence.emplace();
    progress->setRange(0, total);
    progress->setValue(loaded);
    ShowCount();
}

void MainWindow::ShowCount() {
    const int visible = list.rowCount();
    const auto all = static_cast<int>(list.Size());
    const QLocale locale;
    count->setText(visible == all
                       ? u"%1 entries"_s.arg(locale.toString(all))
                       : u"%1 of %2 entries"_s.arg(locale.toString(visible), locale.toString(all)));
    hint->setVisible(visible == 0 && !loader.IsLoading());
    hint->setText(all == 0 ? u"There are no entries yet. Press Ctrl+N to make one."_s
                           : u"No entry holds all of these words."_s);
    Describe(*table, !hint->isHidden() ? hint->text() : table->whatsThis());
}

// A holiday that is none of a calendar's days lets entries run on the day that was meant.
void MainWindow::ShowTroubles() {
    QStringList texts;
    for (const std::string& trouble : loader.Days().troubles) texts.append(ToVisible(trouble));
    troubles->setText(texts.join(u' '));
    troubles->setToolTip(u"<p>%1</p>"_s.arg(troubles->text().toHtmlEscaped()));
}

void MainWindow::ShowSelection() {
    for (QAction* action : entryActions) action->setEnabled(CurrentId() != 0);
    if (table->selectionModel()->hasSelection()) isNoneChosen = false;
    choiceDelay.start(0);
}

EntryRows MainWindow::ChosenRows() const {
    EntryRows chosen;
    for (const QItemSelectionRange& range : table->selectionModel()->selection()) {
        const EntryRows rows = list.RowsAt(range.top(), range.bottom());
        chosen.insert(chosen.end(), rows.begin(), rows.end());
    }
    return chosen;
}

QString MainWindow::ChosenText(const EntryRows& chosen) const {
    if (chosen.size() > 1) return u"%1 entries"_s.arg(QLocale().toString(chosen.size()));
    if (chosen.empty()) return u"All entries"_s;
    const EntryRow& row = *chosen.front();
    if (row.next) return row.texts[EntryRow::Name];
    const QString reason = row.reason.isEmpty() ? QString() : u": "_s + row.reason;
    return row.texts[EntryRow::Name] + u" - "_s + row.texts[EntryRow::State] + reason;
}

void MainWindow::ShowChosen() {
    const EntryRows chosen = ChosenRows();
    if (chosen.empty() && loader.IsLoading()) return;  // not yet all
    pane->ShowChosen(chosen.empty() ? list.All() : chosen, ChosenText(chosen));
}

void MainWindow::ShowOutlook() {
    shownHour = HourOf(Clock().Now());
    choiceDelay.start(0);
    pane->ShowAll(list.All());
}

// A run that has come is no longer the next one.
void MainWindow::FollowClock() {
    const DateTime now = Clock().Now();
    if (list.Advance(now)) {
        list.Sort();
        choiceDelay.start(0);
    }
    if (HourOf(now) != shownHour) ShowOutlook();
}

void MainWindow::ApplyFilter() {
    const std::int64_t current = CurrentRowId();
    list.SetFilter(filter->text());
    SelectOrFirst(current);
    ShowCount();
}

std::int64_t MainWindow::CurrentRowId() const {
    const QModelIndex current = table->currentIndex();
    return current.isValid() ? list.IdAt(current.row()) : 0;
}

std::int32_t MainWindow::CurrentId() const {
    const QItemSelection chosen = table->selectionModel()->selection();
    if (chosen.size() != 1 || chosen.front().height() != 1) return 0;
    const std::int64_t id = list.IdAt(chosen.front().top());
    return std::in_range<std::int32_t>(id) ? static_cast<std::int32_t>(id) : 0;
}

void MainWindow::SelectEntry(std::int64_t id) {
    const int place = list.PlaceOf(id);
    using Model = QItemSelectionModel;  // the table's own way obeys the keys that are held down
    if (place >= 0)
        table->selectionModel()->setCurrentIndex(list.index(place, EntryRow::Name),
                                                 Model::ClearAndSelect | Model::Rows);
    ShowSelection();
}

void MainWindow::SelectOrFirst(std::int64_t id) {
    const bool isNoneWanted = isNoneChosen;
    SelectEntry(list.PlaceOf(id) < 0 && list.rowCount() > 0 ? list.IdAt(0) : id);
    if (isNoneWanted) ChooseNone();
}

void MainWindow::ChooseNone() {
    table->clearSelection();
    isNoneChosen = true;
}

void MainWindow::Reload(std::int32_t id) {
    Succeeds([&] { loader.Reload(id); });
    ShowChanges();
}

void MainWindow::ShowChanges() {
    list.Sort();
    ShowCount();
    if (!table->selectionModel()->hasSelection()) SelectOrFirst(CurrentRowId());
    ShowOutlook();
}

// Without a word to the user but in the status bar: they have asked for nothing.
void MainWindow::FollowOthers() {
    if (loader.IsLoading()) return;
    const Patience::Short isShort(patience);
    int interval = watchMilliseconds;
    try {
        watch.Look([this](const auto& changes) { Show(changes); });
        FollowClock();
        if (watchTimer.interval() != interval) statusBar()->clearMessage();
    } catch (const std::exception& error) {
        statusBar()->showMessage(ToQt(error.what()));
        interval = troubledWatchMilliseconds;
    }
    watchTimer.start(interval);
}

void MainWindow::Show(const std::vector<EntryChange>& changes) {
    if (!watchTimer.isActive()) return;  // the list is about to be loaded for the first time
    if (changes.size() > mostReloaded || loader.IsOutlookOld()) return Refresh();
    for (const EntryChange& change : changes) loader.Reload(change.id);
    ShowChanges();
}

EntryEditor* MainWindow::Open(const std::function<std::unique_ptr<EntrySession>()>& makeSession) {
    EntryEditor* editor = nullptr;
    Succeeds([&] {
        if (auto session = makeSession()) editor = new EntryEditor(std::move(session), dialogs);
    });
    if (editor == nullptr) return nullptr;
    editors.removeAll(nullptr);
    editors.append(editor);
    connect(editor, &EntryEditor::Saved, this, [this](int id) {
        Reload(id);
        SelectEntry(id);
        TellSaved(id);
    });
    editor->show();
    return editor;
}

void MainWindow::TellSaved(std::int32_t id) {
    constexpr int millisecondsShown = 20'000;
    const int place = list.PlaceOf(id);
    if (place < 0) return Announce(*this, u"Saved"_s);
    const EntryRow& row = list.RowAt(place);
    if (!IsTrouble(row.texts[EntryRow::State])) return Announce(*this, u"Saved"_s);
    const QString text = u"Saved. "_s + ChosenText(list.RowsAt(place, place));
    statusBar()->showMessage(text, millisecondsShown);
    Announce(*this, text);
}

EntryEditor* MainWindow::EditorOf(std::int32_t id) const {
    const auto isOfEntry = [id](const auto& editor) { return editor && editor->Session().Record().Id == id; };
    const auto found = std::find_if(editors.begin(), editors.end(), isOfEntry);
    return found == editors.end() ? nullptr : *found;
}

// One editor an entry: two would overtake each other.
EntryEditor* MainWindow::OpenEntry(std::int32_t id) {
    if (EntryEditor* const editor = EditorOf(id)) {
        editor->setWindowState(editor->windowState() & ~Qt::WindowMinimized);
        editor->raise();
        editor->activateWindow();
        return editor;
    }
    return Open([this, id] { return std::make_unique<EntrySession>(workspace, id); });
}

EntryEditor* MainWindow::OpenNew() {
    return Open([this] {
        return std::make_unique<EntrySession>(workspace,
                                              EntrySession::NewEntry{.name = "New Schedule Entry"});
    });
}

// The group of an immediate entry stands from the start: its page offers none to pick.
void MainWindow::NewImmediate() {
    Open([this]() -> std::unique_ptr<EntrySession> {
        const auto groups =
            CaddisStore().DocumentsOfType(DocumentTypes().TypeByName(MAppConstants::nolGroup));
        if (groups.empty()) throw RequestError("There is no study group to run; make one first.");
        QStringList names;
        for (const auto& group : groups) names.append(ToQt(group->Name));
        const QString chosen =
            dialogs.choose(this, u"New Immediate Entry"_s, u"Study group to run:"_s, names, 0);
        const qsizetype place = names.indexOf(chosen);
        if (place < 0) return nullptr;
        const auto groupId = groups[static_cast<std::size_t>(place)]->Id;
        return std::make_unique<EntrySession>(workspace,
                                              EntrySession::NewEntry{true, groupId, "New Immediate Entry"});
    });
}

void MainWindow::Edit() {
    if (const std::int32_t id = CurrentId()) OpenEntry(id);
}

void MainWindow::Duplicate() {
    const EntrySession::CopyOf original{CurrentId()};
    if (original.id != 0) Open([&] { return std::make_unique<EntrySession>(workspace, original); });
}

bool MainWindow::Confirm(std::int32_t id) {
    const QModelIndex row = list.index(list.PlaceOf(id), EntryRow::Name);
    using Box = QMessageBox;
    return dialogs.ask(this, {u"Delete Entry"_s,
                              u"Do you want to delete the entry \"%1\"?"_s.arg(row.data().toString()),
                              Box::Yes | Box::Cancel, Box::Cancel}) == Box::Yes;
}

void MainWindow::Delete() {
    const std::int32_t id = CurrentId();
    if (id == 0 || !Confirm(id)) return;
    Succeeds([&] { workspace.Entries().Delete(id); });
    Reload(id);
}

void MainWindow::Refresh() {
    wantedId = CurrentRowId();
    loader.Start();
    blink.start();
    for (const auto& editor : editors)
        if (editor) editor->RereadOutlook();
}

void MainWindow::FindEntry() {
    filter->setFocus(Qt::ShortcutFocusReason);
    filter->selectAll();
}

void MainWindow::RestoreLayout(const QSettings& settings) {
    restoreGeometry(settings.value(u"geometry"_s).toByteArray());
    table->horizontalHeader()->restoreState(settings.value(u"listColumns"_s).toByteArray());
}

void MainWindow::SaveLayout(QSettings& settings) const {
    settings.setValue(u"geometry"_s, saveGeometry());
    settings.setValue(u"listColumns"_s, table->horizontalHeader()->saveState());
}

void MainWindow::closeEvent(QCloseEvent* event) {
    for (const auto& editor : editors)
        if (editor && !editor->close()) return event->ignore();
    event->accept();
}

}  // namespace NolSchedCtls
