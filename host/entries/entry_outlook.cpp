#include "host/entries/entry_outlook.h"

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
    heads.push({first, &item});
    return true;
}

EntryRun MergedRuns::Current() const {
    const Head& head = heads.top();
    return {*head.run, head.item->id, &head.item->name};
}

void MergedRuns::MoveNext() {
    Head head = heads.top();
    heads.pop();
    if (++head.run != std::default_sentinel) heads.push(head);
}

}  // namespace NolSchedCtls
