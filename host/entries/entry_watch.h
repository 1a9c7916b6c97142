// What others do to the entries of a store.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/database.h"

namespace NolSchedCtls {

struct EntryChange {
    std::int64_t id = 0;
    bool isDeleted = false;  // else saved
};

// Compares the entries' versions with those of the last look, whenever the store hears of a change: so it
// finds, after a lost connection too, whatever has happened in between. Lives no longer than the database.
class EntryWatch {
  public:
    using Visit = std::function<void(const std::vector<EntryChange>&)>;

    explicit EntryWatch(Database& databaseA) : database(databaseA) {}

    // Visits what was saved since the last look, by Id, and then what was deleted; the first look finds all
    // saved. An entry made and deleted in between goes untold. No change is visited where only something else
    // in the store may have changed. Throws StoreError, and what the visit throws; the next look then finds
    // it again.
    void Look(const Visit& visit);
    // An entry that was saved here, of whose end the next looks then tell, too.
    void Note(std::int64_t id);

  private:
    using IdAndVersion = std::pair<std::int64_t, std::int64_t>;

    std::vector<IdAndVersion> Read() const;

    Database& database;
    std::vector<IdAndVersion> seen;  // by Id
    bool mayDiffer = false;
};

}  // namespace NolSchedCtls
