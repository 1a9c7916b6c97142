// What both hosts stand on: one store, prepared, with the library's services over it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/entries/entry_store.h"
#include "host/entries/holiday_store.h"
#include "platform/document_store.h"
#include "platform/schema.h"
#include "platform/services.h"

namespace NolSchedCtls {

struct WorkspaceOptions {
    std::string address;  // as Database takes it
    std::string user;     // who saves; empty: the user that the process runs for
    std::function<void(const Message&)> showMessage;
    std::function<DateTime()> now;  // empty for the system's clock
    Region region = {};
    MissingStore missing = MissingStore::Make;
    Samples samples = Samples::Documents;  // of a store that is made
};

// Installs the services of the process for as long as it stands: one at a time. Throws StoreError if the
// store cannot be opened or prepared.
class Workspace {
  public:
    explicit Workspace(WorkspaceOptions options);
    ~Workspace();
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    // No message is shown meanwhile.
    class Silence {
      public:
        explicit Silence(Workspace& workspaceA)
            : workspace(workspaceA), outer(std::exchange(*workspace.silence, this)) {}
        ~Silence() { *workspace.silence = outer; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

        // Those that were not.
        const std::vector<Message>& Messages() const { return messages; }
        void Keep(const Message& message) { messages.push_back(message); }

      private:
        Workspace& workspace;
        Silence* outer;
        std::vector<Message> messages;
    };

    // What is about to be shown, which a handler may change.
    Event<Message&> Telling;

    // Whether the store was made just now.
    bool IsMade() const { return isMade; }
    Database& Store() { return *database; }
    EntryStore& Entries() { return entries; }
    DocumentStore& Documents() { return documents; }
    HolidayStore& Holidays() { return holidays; }
    // The clock shows the moment, or its own time again.
    void ShowTime(std::optional<DateTime> moment) { *asOf = moment; }
    // The first failure that was reported since the last call, and swallowed after the report.
    std::optional<std::string> TakeFailure();

  private:
    std::shared_ptr<Database> database;
    std::shared_ptr<std::optional<std::string>> failure;
    std::shared_ptr<std::optional<DateTime>> asOf;
    std::shared_ptr<Silence*> silence = std::make_shared<Silence*>();
    EntryStore entries;
    DocumentStore documents;
    HolidayStore holidays;
    bool isMade = false;
};

}  // namespace NolSchedCtls
