// The menu of the stores: which one is open, and what it keeps beside the entries.
#pragma once

#include <QObject>
#include <optional>

#include "host/entries/workspace.h"
#include "host/window/dialogs.h"
#include "host/window/store_choice.h"

class QMenu;
class QSettings;

namespace NolSchedCtls {

class MainWindow;

// Another store is opened by closing the window, once it is known that it can be: its owner then opens
// another one over the store that is wanted. Lives no longer than the window.
class StoreMenu : public QObject {
    Q_OBJECT

  public:
    // The address is that of the open store.
    StoreMenu(MainWindow& windowA, Workspace& workspaceA, std::string addressA, QSettings& settingsA,
              Dialogs dialogsA);

    // Nothing: the user has not asked for another store.
    const std::optional<std::string>& Wanted() const { return wanted; }
    // What fails is told, and all stays as it is.
    void SwitchTo(const std::string& addressA);

  private:
    void MakeMenu();
    void FillRecent(QMenu& menu);
    void OpenFile();
    void Connect();
    void Open(const std::function<std::optional<std::string>()>& choose);
    template <class Dialog, class... Arguments>
    void Edit(Arguments... arguments);
    void EditGroups();
    void EditScenarios();
    void EditHolidays();

    MainWindow& window;
    Workspace& workspace;
    std::string address;
    QSettings& settings;
    Dialogs dialogs;
    std::optional<std::string> wanted;
    StoreChoice choice;
};

}  // namespace NolSchedCtls
