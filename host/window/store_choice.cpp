#include "host/window/store_choice.h"

#include <QFileDialog>
#include <utility>

#include "host/window/connect_dialog.h"
#include "host/window/qt_text.h"
#include "host/window/store_opening.h"
#include "platform/database.h"
#include "platform/server_address.h"

namespace NolSchedCtls {

StoreChoice::StoreChoice(const QSettings& settingsA, Dialogs dialogsA)
    : settings(settingsA), dialogs(std::move(dialogsA)) {}

StoreChoice::~StoreChoice() = default;

// Qt's own dialog: that of a desktop may insist on a file that is there.
std::optional<std::string> StoreChoice::File(QWidget* parent, const std::string& open) {
    QFileDialog chooser(parent, u"Open Store"_s);
    chooser.setOption(QFileDialog::DontUseNativeDialog);
    chooser.setFileMode(QFileDialog::AnyFile);
    chooser.setNameFilters({u"Stores (*.db)"_s, u"All files (*)"_s});
    if (!IsServerAddress(open)) chooser.setDirectory(QFileInfo(ToQt(open)).absolutePath());
    if (chooser.exec() != QDialog::Accepted) return {};
    return chooser.selectedFiles().value(0).toStdString();
}

std::optional<std::string> StoreChoice::Server(QWidget* parent, const std::string& known) {
    const ServerAddress shown = IsServerAddress(known) ? ReadServerAddress(known) : ServerAddress();
    if (!connecting) connecting = std::make_unique<ConnectDialog>(parent);
    connecting->SetServer(shown);
    const bool isAccepted = connecting->exec() == QDialog::Accepted;
    const std::string address = connecting->Address();
    connecting->SetServer({});
    return isAccepted ? std::optional(address) : std::nullopt;
}

std::optional<std::string> StoreChoice::Recent(QWidget* parent, const std::string& kept) {
    return IsServerAddress(kept) ? Server(parent, kept) : std::optional(kept);
}

std::optional<std::string> StoreChoice::Another(const std::string& address) {
    const QString ofFile = u"A file..."_s;
    const QString ofServer = u"A server..."_s;
    const QStringList recent = RecentStores(settings);
    const QString chosen = dialogs.choose(nullptr, u"Open Store"_s, u"Which store is to be opened?"_s,
                                          QStringList{ofFile, ofServer} + recent, 0);
    if (chosen == ofFile) return File(nullptr, address);
    if (chosen == ofServer) return Server(nullptr, {});
    return chosen.isEmpty() ? std::nullopt : Recent(nullptr, chosen.toStdString());
}

std::optional<std::string> StoreChoice::First(const std::string& address) {
    bool isFirst = true;
    while (true) try {
            if (std::exchange(isFirst, false) && IsReady(address, dialogs, nullptr)) return address;
            auto another = Another(address);
            if (!another || IsReady(*another, dialogs, nullptr)) return another;
        } catch (const StoreError& error) {
            ShowMessageBox({error.what(), 16, "Schedule Entries"});
        }
}

}  // namespace NolSchedCtls
