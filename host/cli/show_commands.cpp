#include "host/cli/show_commands.h"

#include <algorithm>
#include <array>
#include <utility>

#include "NolSchedCtls/base/text.h"
#include "host/entries/entry_outlook.h"
#include "host/entries/entry_sentence.h"
#include "host/entries/process.h"
#include "outlook/description.h"

namespace NolSchedCtls {

namespace {

struct ListColumn {
    std::string_view name;
    std::size_t width;
};

constexpr auto listColumns = std::to_array<ListColumn>({{"Id", 5},
                                                        {"EditorName", 22},
                                                        {"group", 14},
                                                        {"next", 17},
                                                        {"state", 15},
                                                        {"sentence", 50},
                                                        {"overrides", 0}});

using ListTexts = std::array<std::string_view, listColumns.size()>;

void TellTexts(Answers& answers, const ListTexts& texts) {
    std::array<Answers::Cell, listColumns.size()> cells{};
    for (std::size_t i = 0; i < cells.size(); ++i) cells[i] = {texts[i], listColumns[i].width};
    answers.TellRow(cells);
}

void TellColumnNames(Answers& answers) {
    ListTexts names;
    std::ranges::transform(listColumns, names.begin(), &ListColumn::name);
    TellTexts(answers, names);
}

void TellEntry(Answers& answers, const ListedEntry& entry, const EntryOutlook& outlook) {
    const Sentence sentence = SentenceOf(entry);
    const EntryState state = outlook.StateOf(entry, sentence.trouble);
    const std::string id = std::to_string(entry.id);
    const std::string next = state.next ? MomentText(*state.next) : "-";
    const std::string kinds = Joined(entry.kinds);
    TellTexts(answers, {id, entry.record->EditorName, entry.group, next, state.text, sentence.text, kinds});
}

// The sentence with what comes of it.
Json ScheduleJson(const ListedEntry& entry, const EntryOutlook& outlook) {
    const Sentence sentence = SentenceOf(entry);
    const EntryState state = outlook.StateOf(entry, sentence.trouble);
    return {{"sentence", sentence.text},
            {"next", state.next ? Json(IsoText(*state.next)) : Json(nullptr)},
            {"state", state.text}};
}

// Null for what no record can hold.
Json ListedProperties(const ListedEntry& entry) {
    Json properties = PropertiesOf(*entry.record);
    if (entry.record->Id != entry.id)
        for (Json& value : properties) value = nullptr;
    return properties;
}

void TellEntryAsJson(Answers& answers, const ListedEntry& entry, const EntryOutlook& outlook) {
    Json told = ListedProperties(entry);
    told.update(Json{{"Id", entry.id},
                     {"EditorName", entry.record->EditorName},
                     {"group", entry.group},
                     {"sentence", nullptr},
                     {"overrides", entry.kinds}});
    told.update(ScheduleJson(entry, outlook));
    answers.Tell({{"entry", told}});
}

void ShowOne(const CommandRun& run, std::int32_t id) {
    const Transaction reading(run.workspace.Store(), Access::Read);
    const StoredEntry entry = run.workspace.Entries().Load(id);
    Json answer = JsonOf(*entry.record);
    const auto tellSchedule = [&](const ListedEntry& listed) {
        const EntryOutlook outlook(run.workspace);
        answer.update(ScheduleJson(listed, outlook));
        answer["description"] = DescribeSchedule(*listed.record, outlook.Settings());
    };
    run.workspace.Entries().ForOne(id, tellSchedule);
    Json& rows = answer["overrides"] = Json::array();
    for (const auto& columns : run.workspace.Entries().OverrideRows(entry.record->Id)) {
        Json& row = rows.emplace_back();
        for (const auto& column : columns) row[column.Name] = JsonOf(column.Value);
    }
    run.answers.Tell(answer);
}

}  // namespace

int List(const CommandRun& run) {
    const EntryOutlook outlook(run.workspace);
    const auto tell = run.answers.IsJson() ? TellEntryAsJson : TellEntry;
    bool isHeaded = run.answers.IsJson();
    const auto head = [&] {
        if (!std::exchange(isHeaded, true)) TellColumnNames(run.answers);
    };
    ForEachChosen(run, [&](const ListedEntry& entry) {
        head();
        tell(run.answers, entry, outlook);
    });
    head();  // where none is chosen
    return exitDone;
}

int Show(const CommandRun& run) {
    for (const std::int32_t id : Chosen(run)) ShowOne(run, id);
    return exitDone;
}

}  // namespace NolSchedCtls
