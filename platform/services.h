// The services of a real host over one database: Lintel, Caddis documents and settings.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "NolSchedCtls/services/provider.h"
#include "platform/database.h"

namespace NolSchedCtls {

struct Message {
    std::string text;
    int flags = 0;
    std::string title;
};

// What a host decides for itself. `now` may be empty: the system's local time.
struct HostServices {
    std::function<void(const Message&)> showMessage;
    std::function<void(const std::string&)> reportFailure;
    std::function<DateTime()> now;
};

// The tables that the services read and write: NOL_Override, NOL_Document and NOL_Setting, with sample
// documents and the default settings. Tables that are there stay as they are. Call inside a transaction.
void CreateServiceTables(Database& database);

// Raises StoreError that names the first of these tables that is missing.
void CheckServiceTables(const Database& database);

std::unique_ptr<ServiceProvider> MakePlatformProvider(std::shared_ptr<Database> database, HostServices host);

}  // namespace NolSchedCtls
