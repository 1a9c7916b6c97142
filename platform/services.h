// The services of a real host over one database: Lintel, Caddis documents and settings.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "NolSchedCtls/services/provider.h"
#include "platform/database.h"
#include "platform/region.h"

namespace NolSchedCtls {

struct Message {
    std::string text;
    int flags = 0;
    std::string title;
};

// What a host decides for itself. `now` may be empty: the system's local time. `asOf` may be empty; else the
// clock shows its moment while it has one.
struct HostServices {
    std::function<void(const Message&)> showMessage;
    std::function<void(const std::string&)> reportFailure;
    std::function<DateTime()> now;
    std::shared_ptr<std::optional<DateTime>> asOf = {};
    Region region = {};
};

std::unique_ptr<ServiceProvider> MakePlatformProvider(std::shared_ptr<Database> database, HostServices host);

}  // namespace NolSchedCtls
