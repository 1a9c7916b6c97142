// Which entries a command is for, and how what it writes is agreed to and finished.
#include <algorithm>
#include <iostream>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "host/cli/command_run.h"
#include "host/entries/entry_outlook.h"
#include "host/entries/entry_sentence.h"
#include "platform/glob.h"

namespace NolSchedCtls {

namespace {

using Visit = std::function<void(const ListedEntry&)>;

void RefuseUnknownState(const std::string& given) {
    const auto states = AllStates();
    if (std::ranges::find(states, given) != states.end()) return;
    const auto nearest = NearestOf(given, states);
    throw UsageError(
        "There is no state " + Quoted(given) +
        (nearest ? "; did you mean " + Quoted(*nearest) + "?" : "; there are " + Joined(states) + "."));
}

void RefuseUnknown(const CommandRun& run) {
    const Filter& filter = run.line.filter;
    if (filter.state) RefuseUnknownState(*filter.state);
    if (filter.group)
        run.workspace.Documents().DocumentNamed(DocumentTypes().TypeByName(MAppConstants::nolGroup),
                                                *filter.group);
}

// Passes on what the filter leaves. Holidays and settings are read for a state alone.
Visit Filtered(const CommandRun& run, const Visit& visit) {
    const Filter& filter = run.line.filter;
    if (!filter.name && !filter.group && !filter.state) return visit;
    RefuseUnknown(run);
    const auto outlook = filter.state ? std::make_shared<EntryOutlook>(run.workspace) : nullptr;
    return [&filter, outlook, &visit](const ListedEntry& entry) {
        if (filter.name && !MatchesGlob(entry.record->EditorName, *filter.name)) return;
        if (filter.group && entry.group != *filter.group) return;
        if (outlook && outlook->StateOf(entry, SentenceOf(entry).trouble).text != *filter.state) return;
        visit(entry);
    };
}

// Ids that are named one by one are meant; what a filter has chosen may be a surprise.
bool NeedsAgreement(const CommandRun& run) {
    return run.line.ids.empty() && !run.line.isAgreed && !run.line.isDryRun;
}

void Agree(const CommandRun& run, std::size_t count) {
    const std::string question =
        run.line.command + ' ' + std::to_string(count) + (count == 1 ? " entry" : " entries");
    if (!run.terminal.isInteractive)
        throw UsageError(question + ": it needs --yes, or --dry-run to see what it would do.");
    run.terminal.err << question << "? [y/N] " << std::flush;
    std::string answer;
    std::getline(run.terminal.in, answer);
    if (answer != "y" && answer != "yes") throw UsageError("Nothing was done.");
}

}  // namespace

void ForEachChosen(const CommandRun& run, const Visit& visit) {
    const EntryStore& entries = run.workspace.Entries();
    const Visit visitChosen = Filtered(run, visit);
    if (run.line.ids.empty()) return entries.ForAll(visitChosen);
    for (const std::int32_t id : run.line.ids) entries.ForOne(id, [](const ListedEntry&) {});
    for (const std::int32_t id : run.line.ids) entries.ForOne(id, visitChosen);
}

std::vector<std::int32_t> Chosen(const CommandRun& run) {
    if (run.line.ids.empty() && !run.line.filter.IsGiven())
        throw UsageError(run.line.command +
                         " lacks ID; --all, --name, --group and --state choose entries, too.");
    std::vector<std::int32_t> ids;
    ForEachChosen(run, [&](const ListedEntry& entry) {
        ids.push_back(static_cast<std::int32_t>(entry.id));
        if (ids.back() != entry.id)
            throw RequestError("The entry " + std::to_string(entry.id) + " in " +
                               run.workspace.Store().Name() + " has an Id that no entry can have.");
    });
    if (ids.empty()) throw RequestError("No entry is chosen.");
    return ids;
}

ChosenIds AgreedTo(const CommandRun& run) {
    if (!NeedsAgreement(run)) return {};
    auto ids = Chosen(run);
    Agree(run, ids.size());
    return ids;
}

Change::Change(const CommandRun& runA) : run(runA), transaction(runA.workspace.Store()) {}

Change::Change(const CommandRun& runA, const ChosenIds& agreed) : Change(runA) {
    chosen = Chosen(run);
    if (NeedsAgreement(run) && chosen != agreed)
        throw RequestError("Others have changed what is chosen meanwhile; nothing was done.");
}

void Change::Finish() {
    if (!IsDry()) {
        run.workspace.Entries().SkipIds();
        transaction.Commit();
    }
    for (Json& answer : told) {
        if (IsDry()) answer["dryRun"] = true;
        run.answers.Tell(answer);
    }
}

}  // namespace NolSchedCtls
