// Services that live in memory: the embedded default of a host, and what tests and benchmarks stand on.
//
// A host starts with InstallMemoryServices. Then it derives from MemoryProvider, overrides one Create after
// the other, and installs that.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1 {

// A box that was shown.
struct MemoryMessage {
    std::string sText;
    int nFlags = 0;
    std::string sTitle;
};

// What the services answer from and write to; read and set it as you like, between calls. One thread at a
// time.
struct MemoryStore {
    using Row = std::vector<LintelField>;

    std::map<std::string, std::vector<Row>, std::less<>> tables;  // by name, as the statements write it
    std::vector<CaddisDocument> documents;                        // of all types, as a user should find them
    CaddisUser user;
    std::optional<DateTime> now;          // where the clock stands; nothing for the system's clock
    std::vector<MemoryMessage> messages;  // in order; nobody waits for a user
    std::vector<std::string> failures;    // what each reported failure says
};

// The row's column of that name, without regard to case, or nothing.
NOLSCHED_API const LintelField* FindField(const MemoryStore::Row& row, std::string_view sColumn);
// Rows as OpenRows gives them, for a host that has read all of them at once.
NOLSCHED_API std::unique_ptr<ILintelRows> RowsInMemory(std::vector<MemoryStore::Row> rows);

// Its Lintel understands the statements that the records send, and throws NolSchedError that names any other:
//   DELETE FROM table WHERE column = literal
//   SELECT * FROM table WHERE column = literal
//   INSERT INTO table (columns) VALUES (literals)
// A condition holds for a value of the same type alone, so that 1 is not 1.0; tables are told apart by case.
class NOLSCHED_API MemoryProvider : public ServiceProvider {
  public:
    explicit MemoryProvider(std::shared_ptr<MemoryStore> storeA) : store(std::move(storeA)) {}

    std::unique_ptr<ILintelDb> CreateLintelDb() override;
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override;
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override;
    std::unique_ptr<IMessageService> CreateMessageService() override;
    std::unique_ptr<IClock> CreateClock() override;

  private:
    std::shared_ptr<MemoryStore> store;
};

// Installs a MemoryProvider over a new store, for one thread, and gives the store.
NOLSCHED_API std::shared_ptr<MemoryStore> InstallMemoryServices();

}  // namespace NolSchedCtls::inline v1
