// The ways to another store: a file, a server, or one that was open lately.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/window/dialogs.h"

class QSettings;

namespace NolSchedCtls {

class ConnectDialog;

// Each gives the address, with the password, or nothing if the user gives up.
class StoreChoice {
  public:
    StoreChoice(const QSettings& settingsA, Dialogs dialogsA);
    ~StoreChoice();
    StoreChoice(const StoreChoice&) = delete;
    StoreChoice& operator=(const StoreChoice&) = delete;

    // In the folder of the store that is open, if that is a file.
    std::optional<std::string> File(QWidget* parent, const std::string& open);
    // What is known of the server's address is shown. Throws StoreError for what is no address.
    std::optional<std::string> Server(QWidget* parent, const std::string& known);
    // A server's password is asked for again. Throws StoreError.
    std::optional<std::string> Recent(QWidget* parent, const std::string& kept);

    // Where no window is open yet: the store, once it is there, or another one. Throws StoreError if this
    // one cannot be opened; what fails after it is told.
    std::optional<std::string> First(const std::string& address);

  private:
    std::optional<std::string> Another(const std::string& address);

    const QSettings& settings;
    Dialogs dialogs;
    std::unique_ptr<ConnectDialog> connecting;  // kept: it may still be asking when it is closed
};

}  // namespace NolSchedCtls
