// The store of the entries' own rows: table NOL_Schedule, beside NOL_Override, which the records store.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <map>
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

// An entry's own row as it was last read or written here. What a save changes is what differs from it: other
// programs have columns of their own in the row.
struct StoredRow {
    std::int32_t version = 0;  // counts the saves
    Database::Values values;   // of all columns but Id, in their order
};

struct StoredEntry {
    std::shared_ptr<CNolSchedData> record;
    StoredRow row;
};

// All that the store holds of an entry, in every column, those of other programs too.
struct KeptEntry {
    using Rows = std::vector<std::vector<LintelField>>;

    std::int32_t id = 0;
    Rows rows;  // one
    Rows overrides;
};

// A row of the list. The record holds the entry's own columns, without overrides; of a row that no record can
// hold it has EditorName alone, and trouble says why.
struct ListedEntry {
    std::int64_t id = 0;  // as it is stored: it may be one that no record can have
    std::shared_ptr<CNolSchedData> record;
    std::string trouble;
    std::string group;               // empty if the group is gone
    std::vector<std::string> kinds;  // the Type of each override row, in the order of the texts
    std::string savedBy;
    DateTime savedAt = 0;  // 0 for what is no date
};

// What an override row asks for.
struct OverrideUse {
    std::string type;
    std::int32_t duration = 0;  // minutes; 0: none is set
    std::int32_t scenarioId = 0;
    bool isScenarioGone = false;
};

// Needs installed services (LintelDb, Clock) and a store with its tables. All throw StoreError where the
// store fails.
class EntryStore {
  public:
    // No user: the one that the process runs for.
    EntryStore(std::shared_ptr<Database> databaseA, std::string userA);

    // Row and overrides as they stood at one moment. Throws RequestError, and StoreError for a row that no
    // record can hold.
    StoredEntry Load(std::int32_t id) const;
    // A new entry without an Id gets one. Returns the row that now stands. Throws OvertakenError for a stored
    // entry whose version is no longer the row's. Call inside a transaction.
    StoredRow Write(CNolSchedData& record, const StoredRow& row);
    // Before the end of a transaction in which entries brought their Ids: those to come get other ones.
    void SkipIds();
    // Inside the same transaction, with the override rows written. Throws StoreError if the store does not
    // hold what was written.
    void Verify(const CNolSchedData& record, const StoredRow& row) const;
    // The row and its override rows, in a transaction of its own; gives them as they were. Throws
    // RequestError.
    KeptEntry Delete(std::int32_t id);
    // Brings back what was deleted, to the letter. Throws RequestError if its Id is taken. Call inside a
    // transaction, and SkipIds before its end.
    void Restore(const KeptEntry& kept);
    // Whether the row has the record's values already.
    bool Holds(const CNolSchedData& record, const StoredRow& row) const;
    using Rows = KeptEntry::Rows;
    // Every column of the entry's override rows as it is stored, by Type.
    Rows OverrideRows(std::int32_t id) const;
    // Runs a step of opening a stored entry: what it throws becomes a StoreError that names store and entry
    // (0: a new one).
    void Opening(std::int32_t id, const std::function<void()>& step) const;
    // By Id, one at a time, those after afterId and at most limit. The entry given is filled anew for the
    // next, but for a record that a visitor keeps.
    void ForEach(const std::function<void(ListedEntry&)>& visit,
                 std::int64_t afterId = std::numeric_limits<std::int64_t>::min(),
                 std::int64_t limit = std::numeric_limits<std::int64_t>::max()) const;
    // The one with that Id. Throws RequestError.
    void ForOne(std::int32_t id, const std::function<void(const ListedEntry&)>& visit) const;
    // The same for all, page by page, so that a store of any size takes the same memory.
    void ForAll(const std::function<void(const ListedEntry&)>& visit) const;
    std::int64_t VersionOf(std::int32_t id) const;  // 0 for an entry that is not there
    // Those that have the document as group or as a scenario: "12 \"Night\"", by Id.
    std::vector<std::string> UsersOf(std::int32_t documentId) const;
    // Of all entries, by Id.
    std::multimap<std::int64_t, OverrideUse> OverrideUses() const;

  private:
    const std::string& User() const;
    // `save`: the values of Version, SavedBy and SavedAt.
    void Add(CNolSchedData& record, const StoredRow& row, const Database::Values& save);
    void Change(const CNolSchedData& record, const StoredRow& row, const StoredRow& written,
                const Database::Values& save);
    [[noreturn]] void TellMissing(std::int32_t id) const;
    [[noreturn]] void TellOvertaken(const CNolSchedData& record, std::int32_t version) const;

    std::shared_ptr<Database> database;
    std::int32_t ownId = 0;  // the highest that a new entry has brought since ids were skipped
    mutable std::string user;
};

}  // namespace NolSchedCtls
