// The stores that the window can be opened over.
#pragma once

#include <QStringList>
#include <string>

#include "host/window/dialogs.h"

class QSettings;

namespace NolSchedCtls {

// The address as it may be kept: of a server without its password, of a file from the root on.
std::string KeptAddress(const std::string& address);

// Opens the store once and closes it again. One that is not there is made if the user wants that; false if
// they do not. Throws StoreError for one that cannot be opened.
bool IsReady(const std::string& address, const Dialogs& dialogs, QWidget* parent);

// The latest first, as they may be kept.
QStringList RecentStores(const QSettings& settings);
void RememberStore(QSettings& settings, const std::string& address);
void ForgetStores(QSettings& settings);

}  // namespace NolSchedCtls
