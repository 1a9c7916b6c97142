// The store of the entries' own rows: table NOL_Schedule, beside NOL_Override, which the records store.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "platform/database.h"

namespace NolSchedCtls {

// Another user has saved or deleted the entry since it was opened.
class OvertakenError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

struct StoredEntry {
    std::shared_ptr<CNolSchedData> record;
    std::int32_t nVersion = 0;  // counts the saves
};

// A row of the list. The record holds the entry's own columns, without overrides; of a row that no record can
// hold it has Id and EditorName alone, and sTrouble says why.
struct ListedEntry {
    std::shared_ptr<CNolSchedData> record;
    std::string sTrouble;
    std::string sGroup;               // empty if the group is gone
    std::vector<std::string> sKinds;  // the Type of each override row, in the order of the texts
};

// Needs installed services (LintelDb, Clock) and a store with its tables. All throw StoreError where the
// store fails.
class EntryStore {
  public:
    EntryStore(std::shared_ptr<Database> databaseA, std::string sUserA);

    // Throws RequestError, and StoreError for a row that no record can hold.
    StoredEntry Load(std::int32_t nId) const;
    // A new entry gets its Id. Returns the version that now stands. Throws OvertakenError for a stored entry
    // whose version is no longer nVersion. Call inside a transaction.
    std::int32_t Write(CNolSchedData& record, std::int32_t nVersion);
    // The row and its override rows, in a transaction of its own. Throws RequestError.
    void Delete(std::int32_t nId);
    // Every column of the entry's override rows as it is stored, by Type.
    std::vector<std::vector<LintelField>> OverrideRows(std::int32_t nId) const;
    // Runs a step of opening a stored entry: what it throws becomes a StoreError that names store and entry
    // (0: a new one).
    void Opening(std::int32_t nId, const std::function<void()>& step) const;
    // By Id, one at a time, those after nAfterId and at most nMost. The entry given is filled anew for the
    // next.
    void ForEach(const std::function<void(const ListedEntry&)>& visit,
                 std::int64_t nAfterId = std::numeric_limits<std::int32_t>::min(),
                 std::int64_t nMost = std::numeric_limits<std::int64_t>::max()) const;
    std::int64_t Count() const;

  private:
    [[noreturn]] void TellOvertaken(const CNolSchedData& record) const;

    std::shared_ptr<Database> database;
    std::string sUser;
};

}  // namespace NolSchedCtls
