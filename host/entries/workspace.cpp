#include "host/entries/workspace.h"

#include <thread>
#include <utility>

#include "platform/schema.h"

namespace NolSchedCtls {

Workspace::Workspace(WorkspaceOptions options)
    : database(OpenDatabase(options.address, options.missing)),
      failure(std::make_shared<std::optional<std::string>>()),
      asOf(std::make_shared<std::optional<DateTime>>()),
      entries(database, std::move(options.user)),
      documents(database),
      holidays(database) {
    const auto keepFirst = [kept = failure](const std::string& text) {
        if (!*kept) *kept = text;
    };
    const auto show = [this, shown = std::move(options.showMessage), kept = silence](Message message) {
        if (*kept != nullptr) return (*kept)->Keep(message);
        Telling.Raise(message);
        shown(message);
    };
    const HostServices host{show, keepFirst, std::move(options.now), asOf, options.region};
    // A connection belongs to its thread; any other thread gets one of its own.
    InstallServices([host, address = options.address, own = database, thread = std::this_thread::get_id()] {
        return MakePlatformProvider(std::this_thread::get_id() == thread ? own : OpenDatabase(address), host);
    });
    isMade = PrepareTables(*database, options.missing, options.samples);
}

Workspace::~Workspace() { InstallServices({}); }
std::optional<std::string> Workspace::TakeFailure() { return std::exchange(*failure, {}); }

}  // namespace NolSchedCtls
