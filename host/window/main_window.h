// The list of the entries, from which they are made, opened and deleted.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include "host/entries/entry_watch.h"
#include "host/window/dialogs.h"
#include "host/window/entry_editor.h"
#include "host/window/entry_list.h"
#include "host/window/entry_loader.h"
#include "host/window/patience.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QSettings;
class QTableView;

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
    bool IsLoading() const { return loader.IsLoading(); }
    OutlookPane& Pane() { return *pane; }
    // The outlook is then that of all entries.
    void ChooseNone();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void MakeActions();
    void MakeTable();
    void MakeFilter();
    void MakePane();
    QAction* MakeOutlookAction();
    void MakeStatus();
    void New() { OpenNew(); }
    void NewImmediate();
    void Edit();
    void Duplicate();
    void Delete();
    void Refresh();
    void FindEntry();
    void Quit() { close(); }
    void ShowCount();
    void ShowTroubles();
    void ShowProgress(int loaded, int total);
    void ShowSelection();
    void ApplyFilter();
    EntryRows ChosenRows() const;
    QString ChosenText(const EntryRows& chosen) const;
    void ShowChosen();
    void ShowOutlook();
    void FollowClock();
    void TellSaved(std::int32_t id);
    // Nothing if no session came of it: the user has changed their mind, or has been told of a failure.
    EntryEditor* EditorOf(std::int32_t id) const;  // nothing if it is not open
    EntryEditor* Open(const std::function<std::unique_ptr<EntrySession>()>& makeSession);
    std::int64_t CurrentRowId() const;  // 0 for none
    std::int32_t CurrentId() const;     // of the one that is chosen; 0 for one that no record can have
    void SelectEntry(std::int64_t id);
    void SelectOrFirst(std::int64_t id);  // the first one if that one is not shown
    void Reload(std::int32_t id);
    void ShowChanges();
    void FollowOthers();
    void Show(const std::vector<EntryChange>& changes);
    bool Confirm(std::int32_t id);

    Workspace& workspace;
    Dialogs dialogs;
    Patience patience;
    EntryList list;
    EntryLoader loader;
    EntryWatch watch;
    QTimer watchTimer;
    QTimer filterDelay;
    QTimer choiceDelay;
    double shownHour = 0;       // from which on the week load tells what is busiest
    QTimer blink;               // the progress bar shows when it ends
    std::int64_t wantedId = 0;  // to choose when the list is loaded
    bool isNoneChosen = false;  // by the user's wish
    QTableView* table = nullptr;
    QLineEdit* filter = nullptr;
    OutlookPane* pane = nullptr;
    QLabel* count = nullptr;
    QLabel* troubles = nullptr;
    QLabel* hint = nullptr;
    QProgressBar* progress = nullptr;
    QList<QAction*> entryActions;  // need a chosen entry
    QList<QPointer<EntryEditor>> editors;
};

}  // namespace NolSchedCtls
