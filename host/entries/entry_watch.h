// What others do to the entries of a store.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <span>
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
    // it again. Goes through so many entries at most, and is true if the next look is to go on behind them.
    bool Look(const Visit& visit, std::int64_t most = std::numeric_limits<std::int64_t>::max());
    // How many entries the looks have found.
    std::size_t Size() const { return seen.size(); }
    // An entry that was saved here, of whose end the next looks then tell, too.
    void Note(std::int64_t id);

  private:
    using IdAndVersion = std::pair<std::int64_t, std::int64_t>;

    static constexpr std::int64_t beforeAll = std::numeric_limits<std::int64_t>::min();

    std::vector<IdAndVersion> Read(std::int64_t most) const;
    std::span<IdAndVersion> SeenUntil(std::int64_t lastId);
    void Keep(const std::vector<IdAndVersion>& read, std::int64_t lastId);

    Database& database;
    std::int64_t afterId = beforeAll;  // where the next look goes on
    std::vector<IdAndVersion> seen;    // by Id
    bool mayDiffer = false;
};

}  // namespace NolSchedCtls
