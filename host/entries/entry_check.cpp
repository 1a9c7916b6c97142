#include "host/entries/entry_check.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "NolSchedCtls/base/text.h"
#include "host/entries/entry_sentence.h"

namespace NolSchedCtls {

namespace {

constexpr DateTime daysLookedAt = 31;
constexpr int minutesOfDay = 24 * 60;

struct Override {
    std::string type;
    std::int32_t minutes = 0;
};

// The entries of one group, and the override of each that takes longest.
struct Group {
    MergedRuns runs;
    std::map<std::int32_t, Override> overrides;
};

std::string MinutesText(long minutes) {
    return std::to_string(minutes) + (minutes == 1 ? " minute" : " minutes");
}

// Each entry once.
void FindClashes(Group& group, std::vector<CheckedEntry>& found) {
    std::optional<EntryRun> before;
    for (; !group.runs.AtEnd() && !group.overrides.empty(); group.runs.MoveNext()) {
        const EntryRun run = group.runs.Current();
        const auto last = std::exchange(before, run);
        const auto open = group.overrides.find(last ? last->id : 0);
        if (open == group.overrides.end()) continue;
        const auto& [type, duration] = open->second;
        const auto minutes = std::lround((run.at - last->at) * minutesOfDay);
        if (duration <= minutes) continue;
        found.push_back({last->id, *last->name, std::string(TextOf(RunState::Scheduled)),
                         type + " takes " + MinutesText(duration) + " from " + MomentText(last->at) +
                             ", and " + MinutesText(minutes) + " after that " +
                             (run.id == last->id ? "the entry itself" : Quoted(*run.name)) +
                             " runs the same group"});
        group.overrides.erase(open);
    }
}

bool IsTrouble(const EntryState& state) {
    return !state.next && state.text != TextOf(RunState::Paused) && state.text != TextOf(RunState::Immediate);
}

class Checker {
  public:
    explicit Checker(Workspace& workspaceA) : workspace(workspaceA) {}

    std::vector<CheckedEntry> CheckAll() {
        workspace.Entries().ForAll([this](const ListedEntry& entry) { CheckOne(entry); });
        for (auto& [id, group] : groups) FindClashes(group, found);
        std::ranges::stable_sort(found, {}, &CheckedEntry::id);
        return std::move(found);
    }

  private:
    void CheckOne(const ListedEntry& entry) {
        const EntryState state = outlook.StateOf(entry, SentenceOf(entry).trouble);
        if (IsTrouble(state)) found.push_back({entry.id, entry.record->EditorName, state.text, state.reason});
        const auto [first, last] = uses.equal_range(entry.id);
        for (auto use = first; use != last; ++use)
            if (use->second.isScenarioGone)
                found.push_back({entry.id, entry.record->EditorName, state.text,
                                 "the scenario " + std::to_string(use->second.scenarioId) + " of " +
                                     use->second.type + " is gone"});
        if (state.next) AddToGroup(entry);
    }

    void AddToGroup(const ListedEntry& entry) {
        const CNolSchedData& record = *entry.record;
        auto& group =
            groups.try_emplace(record.RptGrpId, Group{{outlook.Now(), outlook.Now() + daysLookedAt}, {}})
                .first->second;
        group.runs.Add(record.Id, record.EditorName, outlook.ScheduleOf(record));
        const auto [first, last] = uses.equal_range(entry.id);
        const auto isShorter = [](const auto& one, const auto& other) {
            return one.second.duration < other.second.duration;
        };
        const auto longest = std::max_element(first, last, isShorter);
        if (longest != last && longest->second.duration > 0)
            group.overrides[record.Id] = {longest->second.type, longest->second.duration};
    }

    Workspace& workspace;
    const EntryOutlook outlook{workspace};
    const std::multimap<std::int64_t, OverrideUse> uses = workspace.Entries().OverrideUses();
    std::map<std::int32_t, Group> groups;
    std::vector<CheckedEntry> found;
};

}  // namespace

std::vector<CheckedEntry> CheckEntries(Workspace& workspace) {
    const Transaction reading(workspace.Store(), Access::Read);
    return Checker(workspace).CheckAll();
}

}  // namespace NolSchedCtls
