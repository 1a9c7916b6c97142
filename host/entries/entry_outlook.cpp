#include "host/entries/entry_outlook.h"

#include <algorithm>
#include <utility>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "platform/schema.h"

namespace NolSchedCtls {

namespace {

// A setting that is no number is told by each entry that needs it.
OutlookSettings ReadSettings(Workspace& workspace) {
    const auto settings = workspace.Documents().CurrentUser().Settings;
    const auto found = settings.find(periodMinutes);
    if (found == settings.end()) return {};
    const auto minutes = ParseWhole(found->second);
    return minutes ? OutlookSettings{*minutes} : OutlookSettings{0, found->second};
}

}  // namespace

std::vector<std::string> AllStates() {
    std::vector<std::string> states{std::string(groupMissing)};
    for (const RunState state : allRunStates) states.emplace_back(TextOf(state));
    return states;
}

EntryState StateAt(const Schedule& schedule, DateTime moment) {
    const ScheduleState state = schedule.StateAt(moment);
    EntryState told{std::string(TextOf(state.state)), state.reason, {}};
    if (state.state == RunState::Scheduled) told.next = schedule.NextAfter(moment);
    return told;
}

EntryOutlook::EntryOutlook(Workspace& workspace)
    : now(Clock().Now()),
      days(workspace.Holidays().Days()),
      holidays(days.sound),
      settings(ReadSettings(workspace)) {}

std::string MomentText(DateTime moment) {
    std::string text = IsoText(moment);
    if (text.ends_with(":00")) text.resize(text.size() - 3);
    text[text.find('T')] = ' ';
    return text;
}

EntryState EntryOutlook::StateOf(const ListedEntry& entry, const std::string& trouble) const {
    if (!trouble.empty()) return {std::string(TextOf(RunState::Unreadable)), trouble, {}};
    if (entry.group.empty()) return {std::string(groupMissing), {}, {}};
    return StateOf(ScheduleOf(*entry.record));
}

bool MergedRuns::Add(std::int32_t id, std::string name, Schedule schedule) {
    const Item& item = items.emplace_back(Item{id, std::move(name), std::move(schedule)});
    const auto first = item.schedule.RunsBetween(from, to).begin();
    if (first == std::default_sentinel) return false;
    heads.push_back({first, &item});
    return true;
}

const EntryRun& MergedRuns::Current() {
    if (next == found.size()) FindNextSpan();
    return found[next];
}

// A span that holds few runs is not worth a look at all entries, one that holds many is not worth the memory;
// after years with few of them many may come.
void MergedRuns::FindNextSpan() {
    found.clear();
    next = 0;
    const auto firstRun = [](const Head& head) { return *head.run; };
    const DateTime until = firstRun(*std::ranges::min_element(heads, {}, firstRun)) + span;
    for (auto& [run, item] : heads)
        for (; run != std::default_sentinel && *run <= until; ++run)
            found.push_back({*run, item->id, &item->name});
    if (found.size() < heads.size()) span = std::min(span * 2, longestSpan);
    if (found.size() > 4 * heads.size()) span /= 2;
    std::erase_if(heads, [](const Head& head) { return head.run == std::default_sentinel; });
    std::ranges::sort(found, {}, [](const EntryRun& run) { return std::pair(run.at, run.id); });
}

}  // namespace NolSchedCtls
