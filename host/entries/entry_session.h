// The editing of one entry: a record, a notifier and a fresh set of tabs, from opening to the last save.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "host/entries/workspace.h"

namespace NolSchedCtls {

// A tab with its short name ("hom") and the title of its page ("HOM Study").
struct Page {
    std::string_view name;
    std::string_view title;
    std::unique_ptr<PaviseTab> tab;
};

// Lives no longer than its workspace. Messages of the tabs bear the entry's name as title.
class EntrySession {
  public:
    struct NewEntry {
        bool isImmediate = false;
        std::int32_t groupId = 0;  // 0 for no group yet
        std::string name;
        std::int32_t id = 0;  // 0: the store gives one
    };

    // A new entry with all that the stored one holds but its runs; " (copy)" follows its name.
    struct CopyOf {
        std::int32_t id = 0;
    };

    // The tabs are made here and filled by Load, so that a host can listen in between.
    EntrySession(Workspace& workspaceA, const NewEntry& entry);
    // Both throw RequestError, or StoreError for a row that no record can hold.
    EntrySession(Workspace& workspaceA, std::int32_t id);
    EntrySession(Workspace& workspaceA, CopyOf original);

    // Once, before all below. What the tabs report while they load does not count as a change.
    void Load();

    const std::vector<Page>& Pages() const { return pages; }
    // By short name or by title; nothing for another.
    const Page* FindPage(std::string_view name) const;
    CNolSchedData& Record() { return *record; }
    CPaviseNotify& Notifier() { return *notifier; }
    Workspace& Home() { return workspace; }
    // What a save would store of the schedule as its page stands; the record itself stays as it is. Throws
    // what SaveData throws for a text that does not convert.
    std::unique_ptr<CNolSchedData> ViewedRecord();
    // How often the tabs have reported a change since the load.
    int Changes() const { return changes; }
    bool HasUnsavedChanges() const { return changes != savedChanges; }
    // That, or the pages show another entry than was loaded: a document that is gone, days beyond the
    // maximum.
    bool IsUnsaved() const { return HasUnsavedChanges() || isLoadedOtherwise; }

    // Whether an end that has passed is refused, or stands as it stood when the entry was made.
    enum class PastEnd { Refused, Stands };
    // Asks the pages in their order; the first that refuses has shown why. Nothing if all are valid.
    const Page* FirstRefusal(PastEnd pastEnd = PastEnd::Refused);
    // Whether the stored entry stands in another version than the one that is open. Throws StoreError.
    bool IsOvertaken() const;
    // The page that is asked at this moment; nothing at any other.
    const Page* AskedPage() const { return asked; }

    struct SaveResult {
        const Page* refusedBy = nullptr;  // nothing: the entry is saved
        bool isUnchanged = false;         // the store holds all of it already: nothing was written
    };
    // Asks all pages, then stores row and overrides in one transaction. If the store fails or another user
    // was faster, throws StoreError or OvertakenError; the store, Id and IsNew are then as before.
    SaveResult Save(PastEnd pastEnd = PastEnd::Refused);
    // The same of what is the record's own (EditorName, ScheduleActive), without the pages: also of an entry
    // that they would refuse.
    SaveResult SaveOwn();
    // Stores it as a new entry, under the name of a copy; the stored one stays as it is. If that fails, the
    // session is that of the stored one as before.
    SaveResult SaveAsCopy();

  private:
    explicit EntrySession(Workspace& workspaceA, StoredEntry entry);
    // What fills the record from the pages; nothing: they are not asked, and the overrides stay as they are
    // stored.
    SaveResult StoreAfter(const std::function<void()>& fill);
    // False if the store holds it all already.
    bool Store(bool hasPages);
    bool ShowsOtherwise();
    // Looks up what became of an unsettled save. Throws while the store cannot be asked.
    void Settle();

    Workspace& workspace;
    std::shared_ptr<CNolSchedData> record;
    StoredRow row;
    struct Attempt {
        std::int32_t id;
        StoredRow row;
        std::string transaction;
    };
    std::optional<Attempt> unsettled;  // a save of which it is not known whether it stands
    std::shared_ptr<CPaviseNotify> notifier = std::make_shared<CPaviseNotify>();
    int changes = 0;
    int savedChanges = 0;
    bool isLoadedOtherwise = false;
    const Page* asked = nullptr;
    std::vector<Page> pages;
    ScopedConnection changed;
};

}  // namespace NolSchedCtls
