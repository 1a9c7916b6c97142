#include "host/window/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QSettings>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "NolSchedCtls/services/provider.h"
#include "host/window/accessibility.h"
#include "host/window/appearance.h"
#include "host/window/group_choice.h"
#include "host/window/outlook_pane.h"
#include "host/window/outlook_splitter.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

constexpr int blinkMilliseconds = 300;
constexpr int millisecondsShown = 20'000;
constexpr int watchMilliseconds = 1000;
constexpr int troubledWatchMilliseconds = 10'000;
constexpr std::int64_t entriesALook = 20'000;  // take a few milliseconds
constexpr std::size_t mostReloaded = 50;       // entries one by one; of more the list is loaded anew

double HourOf(DateTime moment) { return std::floor(moment * hoursOfDay); }

}  // namespace

MainWindow::MainWindow(Workspace& workspaceA, Dialogs dialogsA)
    : workspace(workspaceA),
      dialogs(std::move(dialogsA)),
      patience(workspace.Store()),
      loader(workspace, list),
      watch(workspace.Store()) {
    setWindowTitle(u"Schedule Entries - %1"_s.arg(ToQt(workspace.Store().Name())));
    FitToScreen(*this, {1240, 860});
    MakeParts();
    MakeActs();
    MakeMenus();
    MakeStatus();
    connect(&loader, &EntryLoader::Progress, this, &MainWindow::ShowProgress);
    connect(&loader, &EntryLoader::Finished, this, [this] {
        progress->hide();
        ShowCount();
        ShowTroubles();
        if (table->ChosenIds().size() <= 1)
            table->ChooseOrFirst(table->CurrentId() == 0 ? wantedId : table->CurrentId());
        if (wantedIds.size() > 1) table->ChooseAll(wantedIds);
        ShowSelection();  // a list that is loaded anew has dropped the choice without a word
        ShowOutlook();
    });
    connect(&watchTimer, &QTimer::timeout, this, &MainWindow::FollowOthers);
    table->setFocus();
    FollowOthers();
    ShowSelection();
}

MainWindow::~MainWindow() { qDeleteAll(editors); }

// The filter stands over the list, not in the tool bar, which can be hidden and hides what has no place.
void MainWindow::MakeParts() {
    auto* const splitter = new OutlookSplitter(*(outlook = new QAction(u"&Outlook"_s, this)), this);
    auto* const left = new QWidget(splitter);
    left->setMinimumWidth(1);  // the window may become narrow: the pane goes first then
    auto* const column = new QVBoxLayout(left);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(filter = new FilterBar(left));
    column->addWidget(table = new EntryTable(list, left));
    pane = new OutlookPane(splitter);
    splitter->addWidget(left);
    splitter->addWidget(pane);
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({width(), pane->fontMetrics().averageCharWidth() * 56});
    setCentralWidget(splitter);
    connect(filter, &FilterBar::Changed, this, &MainWindow::ApplyFilter);
    connect(&list, &EntryList::Filtered, this, &MainWindow::ShowFiltered);
    connect(filter, &FilterBar::Accepted, table, qOverload<>(&QWidget::setFocus));
    connect(&list, &EntryList::Left, this, [this](const QString& name) { departed.append(name); });
    connect(table, &QTableView::activated, this, &MainWindow::Edit);
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindow::ShowSelection);
    connect(pane, &OutlookPane::Opened, this, &MainWindow::OpenEntry);
    choiceDelay.setSingleShot(true);
    connect(&choiceDelay, &QTimer::timeout, this, &MainWindow::ShowChosen);
}

void MainWindow::MakeActs() {
    acts = std::make_unique<RowActs>(workspace, dialogs, *table);
    acts->isOpen = [this](std::int32_t id) { return EditorOf(id) != nullptr; };
    acts->isUnsaved = [this](std::int32_t id) {
        const EntryEditor* const editor = EditorOf(id);
        return editor != nullptr && editor->IsUnsaved();
    };
    connect(acts.get(), &RowActs::Changed, this, &MainWindow::ShowActed);
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
    if (loader.IsPartial()) count->setText(count->text() + u" read; F5 reads the others"_s);
    const QString hint = all == 0 ? u"There are no entries yet. Press Ctrl+N to make one."_s
                                  : u"No entry passes the filter."_s;
    table->ShowHint(visible == 0 && !loader.IsLoading() ? hint : QString());
}

// A holiday that is none of a calendar's days lets entries run on the day that was meant.
void MainWindow::ShowTroubles() {
    QStringList texts;
    for (const std::string& trouble : loader.Days().troubles) texts.append(ToVisible(trouble));
    troubles->setText(texts.join(u' '));
    troubles->setToolTip(u"<p>%1</p>"_s.arg(troubles->text().toHtmlEscaped()));
}

void MainWindow::ShowSelection() {
    const EntryRows chosen = table->ChosenRows();
    const auto isActive = [](const auto& row) { return row->isActive; };
    const auto active = std::count_if(chosen.begin(), chosen.end(), isActive);
    const bool can[] = {true,       table->OnlyId() != 0,        !chosen.empty(),
                        active > 0, active < std::ssize(chosen), acts->CanUndoDelete()};
    for (const auto& [action, need] : actions) action->setEnabled(can[static_cast<std::size_t>(need)]);
    choiceDelay.start(0);
}

QString MainWindow::ChosenText(const EntryRows& chosen) const {
    if (chosen.size() > 1) return u"%1 entries"_s.arg(QLocale().toString(chosen.size()));
    if (chosen.empty()) return u"All entries"_s;
    const EntryRow& row = *chosen.front();
    if (row.HasNext()) return row.name;
    const QString& reason = row.reason.Text();
    return row.name + u" - "_s + row.state.Text() + (reason.isEmpty() ? QString() : u": "_s + reason);
}

void MainWindow::ShowChosen() {
    const EntryRows chosen = table->ChosenRows();
    if (chosen.empty() && IsLoading()) return;  // not yet all
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
    if (list.Advance(now)) ShowRows();
    if (HourOf(now) != shownHour) ShowOutlook();
}

void MainWindow::ApplyFilter() {
    filteredFrom = table->CurrentId();
    list.SetFilter(filter->Words(), filter->State());
}

void MainWindow::ShowFiltered() {
    table->ChooseOrFirst(filteredFrom);
    ShowSelection();
    ShowCount();
}

void MainWindow::Reload(std::int32_t id) {
    Succeeds([&] { loader.Reload(id); });
    watch.Note(id);
    ShowChanges();
}

void MainWindow::ShowRows() {
    list.Sort();
    ShowCount();
    if (!table->selectionModel()->hasSelection()) table->ChooseOrFirst(table->CurrentId());
    ShowSelection();
}

void MainWindow::ShowChanges(const QString& done) {
    ShowRows();
    ShowOutlook();
    Tell({done, TakeDeparted()});
}

void MainWindow::Tell(QStringList texts) {
    texts.removeAll(QString());
    if (texts.empty()) return;
    statusBar()->showMessage(texts.join(u' '), millisecondsShown);
    Announce(*this, texts.join(u' '));
}

// A row that has gone from under the eyes would look lost.
QString MainWindow::TakeDeparted() {
    const QStringList names = std::exchange(departed, {});
    if (names.empty()) return {};
    const QString who = names.size() == 1 ? u"\"%1\""_s.arg(names.front())
                                          : u"%1 entries"_s.arg(QLocale().toString(names.size()));
    return u"No longer in the list: %1."_s.arg(who);
}

void MainWindow::ShowActed(const std::vector<std::int32_t>& ids, const QString& done) {
    if (ids.size() > mostReloaded) {
        Refresh();
        ShowSelection();
        Tell({done});
    } else {
        const bool isRead = Succeeds([&] {
            for (const std::int32_t id : ids) loader.Reload(id);
        });
        ShowChanges(done);
        if (isRead) table->ChooseAll({ids.begin(), ids.end()});
    }
    for (const std::int32_t id : ids) {
        watch.Note(id);
        FollowIn(id);
    }
    if (loader.IsLoading()) return;  // it is not known yet which are gone
    for (const std::int32_t id : ids)
        if (EntryEditor* const editor = EditorOf(id))
            if (list.IsGone(id) && !editor->isWindowModified()) editor->close();
}

void MainWindow::FollowIn(std::int64_t id) {
    for (const auto& editor : QList(editors))
        if (editor && editor->isVisible() && editor->Session().Record().Id == id) editor->FollowStored();
}

// Without a word to the user but in the status bar: they have asked for nothing.
void MainWindow::FollowOthers() {
    if (loader.IsLoading() || acts->IsBusy()) return watchTimer.start(watchMilliseconds);
    const Patience::Short isShort(patience);
    int interval = watchMilliseconds;
    try {
        const bool hasMore = watch.Look([this](const auto& changes) { Show(changes); }, entriesALook);
        if (watchTimer.interval() == troubledWatchMilliseconds) statusBar()->clearMessage();
        if (hasMore) return watchTimer.start(0);
        FollowClock();
    } catch (const std::exception& error) {
        statusBar()->showMessage(ToQt(error.what()));
        interval = troubledWatchMilliseconds;
    }
    watchTimer.start(interval);
    if (!std::exchange(isListed, true)) Refresh();
}

void MainWindow::Show(const std::vector<EntryChange>& changes) {
    if (!isListed) return;  // the list is about to be loaded for the first time
    if (changes.size() > mostReloaded || loader.IsOutlookOld()) return Refresh();
    for (const EntryChange& change : changes) loader.Reload(change.id);
    ShowChanges();
    for (const EntryChange& change : changes)
        if (!change.isDeleted) FollowIn(change.id);
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
        table->Choose(id);
        TellSaved(id);
    });
    editor->show();
    return editor;
}

void MainWindow::TellSaved(std::int32_t id) {
    const int place = list.PlaceOf(id);
    if (place < 0 && !list.IsGone(id))
        return Tell({u"Saved. It does not pass the filter, and is not in the list."_s});
    const bool isShown = place >= 0 && IsTrouble(list.RowAt(place)->state.Text());
    if (!isShown) return Announce(*this, u"Saved"_s);
    Tell({u"Saved."_s, ChosenText({list.RowAt(place)})});
}

EntryEditor* MainWindow::EditorOf(std::int32_t id) const {
    const auto isOfEntry = [id](const auto& editor) {
        return editor && editor->isVisible() && editor->Session().Record().Id == id;
    };
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
        const auto group = ChooseGroup(this, dialogs, u"New Immediate Entry"_s, u"Study group to run:"_s);
        if (!group) return nullptr;
        return std::make_unique<EntrySession>(workspace,
                                              EntrySession::NewEntry{true, group->id, "New Immediate Entry"});
    });
}

void MainWindow::Edit() {
    if (const std::int32_t id = table->OnlyId()) OpenEntry(id);
}

void MainWindow::Duplicate() {
    const EntrySession::CopyOf original{table->OnlyId()};
    if (original.id == 0) return acts->Duplicate();
    Open([&] { return std::make_unique<EntrySession>(workspace, original); });
}

void MainWindow::Refresh() {
    wantedId = table->CurrentId();
    wantedIds = table->ChosenIds();
    if (!isListed) return;  // it comes
    loader.Start(static_cast<int>(watch.Size()));
    blink.start();
    for (const auto& editor : QList(editors)) {
        if (!editor || !editor->isVisible()) continue;
        editor->FollowStored();
        editor->RereadOutlook();
    }
}

void MainWindow::RestoreLayout(const QSettings& settings) {
    restoreGeometry(settings.value(u"geometry"_s).toByteArray());
    table->RestoreColumns(settings);
}

void MainWindow::SaveLayout(QSettings& settings) const {
    settings.setValue(u"geometry"_s, saveGeometry());
    table->SaveColumns(settings);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    for (const auto& editor : editors)
        if (editor && !editor->close()) return event->ignore();
    event->accept();
}

}  // namespace NolSchedCtls
