// The list of the entries, from which they are made, opened and deleted.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <span>

#include "host/entries/entry_watch.h"
#include "host/window/dialogs.h"
#include "host/window/entry_editor.h"
#include "host/window/entry_list.h"
#include "host/window/entry_loader.h"
#include "host/window/entry_table.h"
#include "host/window/filter_bar.h"
#include "host/window/patience.h"
#include "host/window/row_acts.h"

class QLabel;
class QProgressBar;
class QSettings;
class QToolBar;

namespace NolSchedCtls {

class OutlookPane;

// Owns its editors, each a window of its own; closing it closes them first, each with its question. Lives no
// longer than the workspace.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    MainWindow(Workspace& workspaceA, Dialogs dialogsA);
    ~MainWindow() override;

    void RestoreLayout(const QSettings& settings);
    void SaveLayout(QSettings& settings) const;
    // Shows the editor of a stored entry. A failure is told in a message box.
    EntryEditor* OpenEntry(std::int32_t id);
    // A new scheduled entry, without a group yet.
    EntryEditor* OpenNew();
    bool IsLoading() const { return !isListed || loader.IsLoading(); }
    OutlookPane& Pane() { return *pane; }
    // The outlook is then that of all entries.
    void ChooseNone() { table->ChooseNone(); }
    // Reads the list anew; the open editors follow what the store keeps beside the entries.
    void Refresh();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    // What an action needs to be of use.
    enum class Need { Nothing, OneChosen, SomeChosen, ActiveChosen, PausedChosen, Deletion };
    struct Command;
    struct NeedyAction {
        QAction* action;
        Need need;
    };

    void MakeParts();
    void MakeActs();
    void MakeMenus();
    void MakeMenu(const QString& title, std::span<const Command> commands, QToolBar& bar);
    void MakeViewMenu(QToolBar& bar);
    void MakeStatus();
    void NewImmediate();
    void Edit();
    void Duplicate();
    void ShowCount();
    void ShowTroubles();
    void ShowProgress(int loaded, int total);
    void ShowSelection();
    void ApplyFilter();
    void ShowFiltered();
    QString ChosenText(const EntryRows& chosen) const;
    void ShowChosen();
    void ShowOutlook();
    void FollowClock();
    void TellSaved(std::int32_t id);
    EntryEditor* EditorOf(std::int32_t id) const;  // nothing if it is not open
    // Nothing if no session came of it: the user has changed their mind, or has been told of a failure.
    EntryEditor* Open(const std::function<std::unique_ptr<EntrySession>()>& makeSession);
    void Reload(std::int32_t id);
    void ShowRows();
    void ShowChanges(const QString& done = {});
    void FollowOthers();
    void FollowIn(std::int64_t id);  // in the editor of that entry
    void Show(const std::vector<EntryChange>& changes);
    void ShowActed(const std::vector<std::int32_t>& ids, const QString& done);
    QString TakeDeparted();
    void Tell(QStringList texts);  // in the status bar

    Workspace& workspace;
    Dialogs dialogs;
    Patience patience;
    EntryList list{this};
    EntryLoader loader;
    EntryWatch watch;
    QTimer watchTimer;
    QTimer choiceDelay;
    double shownHour = 0;           // from which on the week load tells what is busiest
    QTimer blink;                   // the progress bar shows when it ends
    bool isListed = false;          // or being loaded: what others do is looked at first, and then followed
    std::int64_t filteredFrom = 0;  // the one that was current
    std::int64_t wantedId = 0;      // to choose when the list is loaded
    std::vector<std::int64_t> wantedIds;
    QStringList departed;  // the list since the filter's last word
    EntryTable* table = nullptr;
    FilterBar* filter = nullptr;
    std::unique_ptr<RowActs> acts;
    OutlookPane* pane = nullptr;
    QAction* outlook = nullptr;  // shows the pane
    QLabel* count = nullptr;
    QLabel* troubles = nullptr;
    QProgressBar* progress = nullptr;
    std::vector<NeedyAction> actions;
    QList<QPointer<EntryEditor>> editors;
};

}  // namespace NolSchedCtls
