#include "host/window/store_menu.h"

#include <QMenuBar>
#include <QSettings>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"
#include "host/window/documents_dialog.h"
#include "host/window/holidays_dialog.h"
#include "host/window/main_window.h"
#include "host/window/qt_text.h"
#include "host/window/store_opening.h"
#include "platform/server_address.h"

namespace NolSchedCtls {

StoreMenu::StoreMenu(MainWindow& windowA, Workspace& workspaceA, std::string addressA, QSettings& settingsA,
                     Dialogs dialogsA)
    : window(windowA),
      workspace(workspaceA),
      address(std::move(addressA)),
      settings(settingsA),
      dialogs(std::move(dialogsA)),
      choice(settings, dialogs) {
    RememberStore(settings, address);
    MakeMenu();
}

void StoreMenu::MakeMenu() {
    struct Command {
        const char* text;
        const char* shortcut;
        const char* tip;
        void (StoreMenu::*run)();
    };
    static constexpr Command commands[] = {
        {"&Open...", "Ctrl+O", "Opens the store in a file", &StoreMenu::OpenFile},
        {"&Connect to a Server...", "Ctrl+Shift+O", "Opens the store on a server", &StoreMenu::Connect},
        {"Study &Groups...", "", "Adds, renames and deletes study groups", &StoreMenu::EditGroups},
        {"&Scenarios...", "", "Adds, renames and deletes scenarios", &StoreMenu::EditScenarios},
        {"&Holidays...", "", "Adds, imports and deletes holidays", &StoreMenu::EditHolidays},
    };
    QMenu* const menu = window.menuBar()->addMenu(u"&Store"_s);
    for (const Command& command : commands) {
        if (command.run == &StoreMenu::EditGroups) menu->addSeparator();
        QAction* const action = menu->addAction(QString::fromUtf8(command.text));
        action->setShortcut(QKeySequence(QString::fromUtf8(command.shortcut)));
        action->setStatusTip(QString::fromUtf8(command.tip));
        connect(action, &QAction::triggered, this, [this, &command] { (this->*command.run)(); });
        if (command.run != &StoreMenu::OpenFile) continue;
        QMenu* const recent = menu->addMenu(u"Open &Recent"_s);
        connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecent(*recent); });
    }
}

void StoreMenu::FillRecent(QMenu& menu) {
    menu.clear();
    QStringList stores = RecentStores(settings);
    stores.removeAll(ToQt(KeptAddress(address)));
    for (const QString& store : stores) {
        QAction* const action = menu.addAction(ToVisible(store.toStdString()).replace(u'&', u"&&"_s));
        connect(action, &QAction::triggered, this, [this, kept = store.toStdString()] {
            Open([this, kept] { return choice.Recent(&window, kept); });
        });
    }
    menu.addSeparator();
    QAction* const forget = menu.addAction(u"&Forget All"_s);
    forget->setEnabled(!stores.isEmpty());
    connect(forget, &QAction::triggered, this, [this] { ForgetStores(settings); });
}

void StoreMenu::Open(const std::function<std::optional<std::string>()>& choose) {
    std::optional<std::string> chosen;
    Succeeds([&] { chosen = choose(); });
    if (chosen) SwitchTo(*chosen);
}

void StoreMenu::OpenFile() {
    Open([this] { return choice.File(&window, address); });
}

void StoreMenu::Connect() {
    Open([this] { return choice.Server(&window, IsServerAddress(address) ? KeptAddress(address) : ""); });
}

void StoreMenu::SwitchTo(const std::string& addressA) {
    bool isReady = false;
    Succeeds([&] {
        isReady = KeptAddress(addressA) != KeptAddress(address) && IsReady(addressA, dialogs, &window);
    });
    if (!isReady) return;
    wanted = addressA;
    if (!window.close()) wanted.reset();
}

template <class Dialog, class... Arguments>
void StoreMenu::Edit(Arguments... arguments) {
    Succeeds([&] {
        Dialog dialog(&window, workspace, dialogs, arguments...);
        dialog.exec();
        if (dialog.HasChanged()) window.Refresh();
    });
}

void StoreMenu::EditGroups() {
    Edit<DocumentsDialog>(DocumentTypes().TypeByName(MAppConstants::nolGroup), u"study group"_s);
}
void StoreMenu::EditScenarios() {
    Edit<DocumentsDialog>(CaddisScenarios().ScenarioDocumentType(), u"scenario"_s);
}
void StoreMenu::EditHolidays() { Edit<HolidaysDialog>(); }

}  // namespace NolSchedCtls
