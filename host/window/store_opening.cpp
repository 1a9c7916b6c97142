#include "host/window/store_opening.h"

#include <QSettings>
#include <filesystem>

#include "host/window/patience.h"
#include "host/window/qt_text.h"
#include "platform/schema.h"
#include "platform/server_address.h"

namespace NolSchedCtls {

namespace {

constexpr qsizetype mostRecent = 8;
const QString recentKey = u"recentStores"_s;

void OpenOnce(const std::string& address, MissingStore missing) {
    const auto database = OpenDatabase(address, missing);
    const Patience patience(*database);
    PrepareTables(*database, missing);
}

bool IsMakingWanted(const std::string& address, const Dialogs& dialogs, QWidget* parent) {
    const std::string kept = KeptAddress(address);
    const QString name = ToVisible(IsServerAddress(kept) ? NameOfServer(kept) : kept);
    using Box = QMessageBox;
    return dialogs.ask(parent, {u"Make Store"_s, u"There is no store at %1. Make one?"_s.arg(name),
                                Box::Yes | Box::No, Box::No}) == Box::Yes;
}

}  // namespace

std::string KeptAddress(const std::string& address) {
    if (!IsServerAddress(address)) return std::filesystem::absolute(address).lexically_normal().string();
    ServerAddress server = ReadServerAddress(address);
    server.password.clear();
    return server.Text();
}

bool IsReady(const std::string& address, const Dialogs& dialogs, QWidget* parent) {
    try {
        OpenOnce(address, MissingStore::Refuse);
        return true;
    } catch (const StoreError& error) {
        if (error.kind != StoreError::Kind::Missing) throw;
    }
    if (!IsMakingWanted(address, dialogs, parent)) return false;
    OpenOnce(address, MissingStore::Make);
    return true;
}

QStringList RecentStores(const QSettings& settings) { return settings.value(recentKey).toStringList(); }

void RememberStore(QSettings& settings, const std::string& address) {
    QStringList stores = RecentStores(settings);
    const QString kept = ToQt(KeptAddress(address));
    if (stores.value(0) == kept) return;  // what is written waits for the disk
    stores.removeAll(kept);
    stores.prepend(kept);
    settings.setValue(recentKey, stores.mid(0, mostRecent));
}

void ForgetStores(QSettings& settings) { settings.remove(recentKey); }

}  // namespace NolSchedCtls
