#include "host/entries/entry_session.h"

#include <algorithm>
#include <array>
#include <utility>

#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/toolkit/ss_date_combo.h"

namespace NolSchedCtls {

namespace {

template <class Tab>
std::unique_ptr<PaviseTab> Make() {
    return std::make_unique<Tab>();
}

struct StudyPage {
    std::string_view name;
    const StudyKind& kind;
    std::unique_ptr<PaviseTab> (*make)();
};

std::vector<Page> MakePages() {
    static constexpr std::array<StudyPage, studyKinds.size()> studyPages = {
        StudyPage{"hom", studyKinds[0], Make<XNolSchedHomOvr>},
        StudyPage{"plm", studyKinds[1], Make<XNolSchedPlmOvr>},
        StudyPage{"rfc", studyKinds[2], Make<XNolSchedRfcOvr>},
        StudyPage{"vcsa", studyKinds[3], Make<XNolSchedVcsOvr>},
    };
    std::vector<Page> pages;
    pages.push_back({"general", "General", Make<XNolSchedGenTab>()});
    pages.push_back({"schedule", "Schedule", Make<XNolScheduleTab>()});
    for (const StudyPage& page : studyPages) pages.push_back({page.name, page.kind.sKey, page.make()});
    return pages;
}

StoredEntry NewRecord(const EntrySession::NewEntry& entry) {
    auto record = std::make_shared<CNolSchedData>();
    record->InitNew(std::make_shared<CaddisScenarioType>(), entry.isImmediate, entry.groupId, entry.name);
    record->Id = entry.id;
    return {std::move(record), {}};
}

void MakeCopy(CNolSchedData& record) {
    record.Id = 0;
    record.IsNew = true;
    record.EditorName += " (copy)";
    record.LastRunDate = record.NextRunDate = 0;
}

StoredEntry CopiedRecord(StoredEntry entry) {
    MakeCopy(*entry.record);
    return entry;
}

void CopyColumns(CNolSchedData& from, CNolSchedData& to) {
    for (const auto& entryColumn : entryColumns)
        std::visit([&](const auto& column) { to.*column.pProperty = from.*column.pProperty; }, entryColumn);
    for (const StudyKind& kind : studyKinds) to.*kind.pFlag = from.*kind.pFlag;
    to.IsNew = from.IsNew;
    to.Overrides() = from.Overrides();
}

// What the pages save in the meantime is the record's own no longer, nor is it what a user chose last.
class Trial {
  public:
    explicit Trial(CNolSchedData& recordA) : record(recordA) { CopyColumns(record, kept); }
    ~Trial() {
        CopyColumns(kept, record);
        scenarios->nLastDocumentId = lastScenario;
    }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    const CNolSchedData& Kept() const { return kept; }

  private:
    CNolSchedData& record;
    CNolSchedData kept;
    std::shared_ptr<MarletState> scenarios =
        CaddisPickerStates().PickerStates().StatesForType(CaddisScenarios().ScenarioDocumentType());
    std::int32_t lastScenario = scenarios->nLastDocumentId;
};

// What the page of an override shows; a number below 1 is none.
auto ShownOf(const CNolSchedData& record, const StudyKind& kind) {
    const auto item = record.GetOverride(kind.sKey);
    const auto number = [&](auto member) { return item ? std::max(0, item.get()->*member) : 0; };
    return std::array{static_cast<std::int32_t>(record.*kind.pFlag == "Y"),
                      static_cast<std::int32_t>(item != nullptr),
                      number(&CNolOverride::ScenarioId),
                      number(&CNolOverride::Duration),
                      number(&CNolOverride::Polling_Interval),
                      number(&CNolOverride::Retrieve_Delay)};
}

bool ShowSame(const CNolSchedData& one, const CNolSchedData& other) {
    const auto isSameColumn = [&](const auto& column) {
        return one.*column.pProperty == other.*column.pProperty;
    };
    return std::ranges::all_of(entryColumns,
                               [&](const auto& column) { return std::visit(isSameColumn, column); }) &&
           std::ranges::all_of(
               studyKinds, [&](const StudyKind& kind) { return ShownOf(one, kind) == ShownOf(other, kind); });
}

}  // namespace

EntrySession::EntrySession(Workspace& workspaceA, StoredEntry entry)
    : workspace(workspaceA), record(std::move(entry.record)), row(std::move(entry.row)), pages(MakePages()) {
    changed = notifier->Changed.Connect([this] { ++changes; });
}

EntrySession::EntrySession(Workspace& workspaceA, const NewEntry& entry)
    : EntrySession(workspaceA, NewRecord(entry)) {}

EntrySession::EntrySession(Workspace& workspaceA, std::int32_t id)
    : EntrySession(workspaceA, workspaceA.Entries().Load(id)) {}

EntrySession::EntrySession(Workspace& workspaceA, CopyOf original)
    : EntrySession(workspaceA, CopiedRecord(workspaceA.Entries().Load(original.id))) {}

void EntrySession::Load() {
    workspace.Entries().Opening(record->Id, [this] {
        for (const Page& page : pages) page.tab->LoadData(record, record->EditorName, notifier);
    });
    changes = 0;
    isLoadedOtherwise = !record->IsNew && ShowsOtherwise();
}

// A page that cannot be saved shows nothing that was stored.
bool EntrySession::ShowsOtherwise() {
    const Trial trial(*record);
    try {
        for (const Page& page : pages) page.tab->SaveData();
    } catch (const NolSchedError&) {
        return true;
    }
    return !ShowSame(trial.Kept(), *record);
}

std::unique_ptr<CNolSchedData> EntrySession::ViewedRecord() {
    auto viewed = std::make_unique<CNolSchedData>();
    const Trial trial(*record);
    FindPage("schedule")->tab->SaveData();
    CopyColumns(*record, *viewed);
    return viewed;
}

const Page* EntrySession::FindPage(std::string_view name) const {
    for (const Page& page : pages)
        if (page.name == name || page.title == name) return &page;
    return nullptr;
}

const Page* EntrySession::FirstRefusal(PastEnd pastEnd) {
    struct Asking {
        ~Asking() {
            session.workspace.ShowTime({});
            session.asked = nullptr;
        }
        EntrySession& session;
    } const asking{*this};
    // No end has passed then.
    if (pastEnd == PastEnd::Stands) workspace.ShowTime(SSDateCombo::MinDate());
    for (const Page& page : pages)
        if (!(asked = &page)->tab->IsTabValid(record->EditorName)) return &page;
    return nullptr;
}

EntrySession::SaveResult EntrySession::Save(PastEnd pastEnd) {
    if (const Page* const refusal = FirstRefusal(pastEnd)) return {refusal};
    return StoreAfter([this] {
        for (const Page& page : pages) page.tab->SaveData();
    });
}

bool EntrySession::IsOvertaken() const {
    const std::int64_t version = record->IsNew ? 0 : workspace.Entries().VersionOf(record->Id);
    return version != 0 && version != row.version;
}

EntrySession::SaveResult EntrySession::SaveOwn() { return StoreAfter({}); }

EntrySession::SaveResult EntrySession::SaveAsCopy() {
    CNolSchedData former;
    CopyColumns(*record, former);
    const auto formerRow = std::exchange(row, {});
    const auto stay = [&] {
        CopyColumns(former, *record);
        row = formerRow;
    };
    MakeCopy(*record);
    try {
        const SaveResult result = Save();
        if (result.refusedBy != nullptr) stay();
        return result;
    } catch (...) {
        stay();
        throw;
    }
}

EntrySession::SaveResult EntrySession::StoreAfter(const std::function<void()>& fill) {
    Settle();
    const auto formerId = record->Id;
    const bool wasNew = record->IsNew;
    SaveResult result;
    try {
        if (fill) fill();
        result.isUnchanged = !Store(fill != nullptr);
    } catch (...) {
        record->Id = formerId;
        record->IsNew = wasNew;
        throw;
    }
    record->IsNew = false;
    savedChanges = changes;
    isLoadedOtherwise = false;
    if (fill)
        for (const Page& page : pages) page.tab->SaveState();
    return result;
}

// Whether the overrides change anything is seen by their rows: the record writes them all anew.
bool EntrySession::Store(bool hasPages) {
    workspace.TakeFailure();
    Transaction transaction(workspace.Store());
    EntryStore& entries = workspace.Entries();
    const bool isSameRow = entries.Holds(*record, row);
    const auto formerOverrides = isSameRow ? entries.OverrideRows(record->Id) : EntryStore::Rows();
    StoredRow written = entries.Write(*record, row);
    if (hasPages) record->SaveNolOverrides();
    if (const auto failure = workspace.TakeFailure()) throw StoreError(*failure);
    if (isSameRow && entries.OverrideRows(record->Id) == formerOverrides) return false;
    entries.Verify(*record, written);
    try {
        transaction.Commit();
    } catch (const StoreError& error) {
        if (error.kind == StoreError::Kind::Unknown)
            unsettled = Attempt{record->Id, std::move(written), error.transaction};
        throw;
    }
    row = std::move(written);
    return true;
}

void EntrySession::Settle() {
    if (!unsettled) return;
    const bool stands = workspace.Store().IsCommitted(unsettled->transaction);
    const Attempt attempt = *std::exchange(unsettled, {});
    if (!stands) return;
    record->Id = attempt.id;
    record->IsNew = false;
    row = attempt.row;
}

}  // namespace NolSchedCtls
