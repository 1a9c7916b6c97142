#include "host/cli/plan_commands.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "host/cli/words.h"
#include "host/entries/entry_check.h"
#include "host/entries/entry_sentence.h"
#include "host/entries/process.h"

namespace NolSchedCtls {

namespace {

constexpr const char* idKey = "Id";

enum class Outcome { Created, Changed, Unchanged };

Json JsonOf(const std::vector<WordChange>& changes) {
    Json told = Json::object();
    for (const auto& [word, from, to] : changes) told[std::string(word)] = {{"from", from}, {"to", to}};
    return told;
}

// The id of an entry that does not come to stand is none.
void Tell(Change& change, const CNolSchedData& record, Outcome outcome,
          const std::vector<WordChange>& changes) {
    constexpr const char* acts[] = {"created", "saved", "unchanged"};
    const bool hasId = !(change.IsDry() && outcome == Outcome::Created);
    change.Tell({{"set",
                  {{idKey, hasId ? Json(record.Id) : Json(nullptr)},
                   {"EditorName", record.EditorName},
                   {"act", acts[static_cast<int>(outcome)]},
                   {"changes", JsonOf(changes)}}}});
}

UsageError::Place PlaceOf(const CNolSchedData& record) {
    return {{}, 0, record.IsNew ? 0 : record.Id, record.EditorName};
}

// Throws RefusedError for what a tab refuses; gives whether the store held it all already.
bool SaveOrRefuse(EntrySession& session) {
    const UsageError::Place place = PlaceOf(session.Record());
    const auto [refusal, isUnchanged] = session.Save();
    if (refusal != nullptr)
        throw RefusedError("the tab " + std::string(refusal->title) + " refuses it.", place);
    return isUnchanged;
}

// Throws UsageError that names the entry.
Outcome Save(EntrySession& session, const WordTexts& texts, Change& change) {
    const CNolSchedData& record = session.Record();
    const bool isNew = record.IsNew;
    const UsageError::Place place = PlaceOf(record);
    session.Load();
    const WordTexts before = ReadWords(session);
    bool isUnchanged = false;
    try {
        WriteWords(session, texts);
        isUnchanged = SaveOrRefuse(session);
    } catch (UsageError& error) {
        error.place = place;
        throw;
    }
    const Outcome outcome = isNew ? Outcome::Created : isUnchanged ? Outcome::Unchanged : Outcome::Changed;
    const auto changes = isNew ? std::vector<WordChange>() : ChangesBetween(before, ReadWords(session));
    Tell(change, record, outcome, changes);
    return outcome;
}

std::int32_t GroupNamed(const CommandRun& run, const std::string& name) {
    return run.workspace.Documents()
        .DocumentNamed(DocumentTypes().TypeByName(MAppConstants::nolGroup), name)
        ->Id;
}

EntrySession::NewEntry NewEntryOf(const CommandRun& run, const WordTexts& texts, bool isImmediate,
                                  std::int32_t id) {
    const auto textOf = [&texts](std::string_view word) {
        const std::string* const text = TextOf(texts, word);
        return text == nullptr ? std::string() : *text;
    };
    const std::string group = textOf("group"), name = textOf("name");
    if (name.empty()) throw UsageError("A new entry lacks its name.");
    const bool hasGroup = !group.empty() && group != noText;
    return {isImmediate || textOf("immediate") == "on", hasGroup ? GroupNamed(run, group) : 0, name, id};
}

// An entry of a plan as the words of its object.
struct Planned {
    std::int32_t id = 0;
    WordTexts texts;
};

std::string TextOfValue(const std::string& word, const Json& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_boolean()) return value.get<bool>() ? "on" : "off";
    if (value.is_number_integer()) return value.dump();
    throw UsageError(word + " takes a text, not " + value.dump() + ".");
}

Planned PlannedOf(const Json& object) {
    if (!object.is_object()) throw UsageError("an entry is an object, not " + object.dump() + ".");
    Planned planned;
    for (const auto& [key, value] : object.items()) {
        if (key != idKey) {
            planned.texts.push_back({&WordNamed(key), TextOfValue(key, value)});
            continue;
        }
        planned.id = value.is_number_integer() ? ParseWhole(value.dump()).value_or(0) : 0;
        if (planned.id < 1) throw UsageError("Id is a number from 1 on, not " + value.dump() + ".");
    }
    return planned;
}

// Line ends do not matter, and a byte-order mark is none of it.
Json ReadPlan(const CommandRun& run) {
    std::ifstream file;
    if (run.line.file != "-") file.open(run.line.file);
    std::istream& stream = run.line.file == "-" ? run.terminal.in : file;
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!file.is_open() && run.line.file != "-")
        throw UsageError("The plan " + Quoted(run.line.file) + " cannot be read: " + std::strerror(errno) +
                         ".");
    try {
        Json plan = Json::parse(text);
        if (plan.is_array()) return plan;
    } catch (const Json::exception& error) {
        throw UsageError("The plan " + Quoted(run.line.file) + " is no JSON: " + error.what() + ".");
    }
    throw UsageError("The plan " + Quoted(run.line.file) + " is no list of entries, as dump writes it.");
}

void MakeMissing(const CommandRun& run, const WordTexts& texts) {
    DocumentStore& documents = run.workspace.Documents();
    for (const auto& [word, text] : texts) {
        const bool isGroup = word->name == "group";
        if ((!isGroup && !word->name.ends_with(".scenario")) || text == noText) continue;
        const CaddisDocumentType type = isGroup ? DocumentTypes().TypeByName(MAppConstants::nolGroup)
                                                : CaddisScenarios().ScenarioDocumentType();
        const auto isNamed = [&text = text](const auto& document) { return document->Name == text; };
        if (std::ranges::none_of(documents.DocumentsOfType(type), isNamed)) documents.Add(type, text);
    }
}

// Which stored entry a planned one means: that of its Id, and by its name where it has none or names alone
// count.
class Matching {
  public:
    explicit Matching(const CommandRun& run) : isByName(run.line.matchesNames) {
        run.workspace.Entries().ForAll(
            [this](const ListedEntry& entry) { Add(entry.id, entry.record->EditorName); });
    }

    void Add(std::int64_t id, const std::string& name) {
        ids.insert(id);
        names.emplace(name, id);
    }

    // The Id of a new one: 0 for the store's next.
    std::int32_t NewId(const Planned& planned) const { return isByName ? 0 : planned.id; }

    // 0 for none.
    std::int32_t IdOf(const Planned& planned) const {
        if (NewId(planned) != 0) return ids.contains(planned.id) ? planned.id : 0;
        const std::string* const name = TextOf(planned.texts, "name");
        if (name == nullptr) throw UsageError("it lacks its name.");
        if (names.count(*name) > 1)
            throw UsageError("there are " + std::to_string(names.count(*name)) + " entries named " +
                             Quoted(*name) + ".");
        const auto found = names.find(*name);
        return found == names.end() ? 0 : static_cast<std::int32_t>(found->second);
    }

  private:
    bool isByName;
    std::set<std::int64_t> ids;
    std::multimap<std::string, std::int64_t> names;
};

Outcome ApplyOne(const CommandRun& run, Matching& matching, const Json& object, Change& change) {
    const Planned planned = PlannedOf(object);
    MakeMissing(run, planned.texts);
    if (const std::int32_t id = matching.IdOf(planned); id != 0) {
        EntrySession session(run.workspace, id);
        return Save(session, planned.texts, change);
    }
    EntrySession session(run.workspace, NewEntryOf(run, planned.texts, false, matching.NewId(planned)));
    const Outcome outcome = Save(session, planned.texts, change);
    matching.Add(session.Record().Id, session.Record().EditorName);
    return outcome;
}

}  // namespace

int Set(const CommandRun& run) {
    const WordTexts texts = ParseWords(run.line.words);
    if (texts.empty()) throw UsageError("set lacks WORD=TEXT, as period=Weekly.");
    const auto ids = ChosenForChange(run);
    Change change(run);
    for (const std::int32_t id : ids) {
        EntrySession session(run.workspace, id);
        Save(session, texts, change);
    }
    change.Finish();
    return exitDone;
}

int Duplicate(const CommandRun& run) {
    const auto ids = ChosenForChange(run);
    Change change(run);
    for (const std::int32_t id : ids) {
        EntrySession copy(run.workspace, EntrySession::CopyOf{id});
        copy.Load();
        SaveOrRefuse(copy);
        Tell(change, copy.Record(), Outcome::Created, {});
    }
    change.Finish();
    return exitDone;
}

int NewByWords(const CommandRun& run) {
    const WordTexts texts = ParseWords(run.line.words);
    Change change(run);
    EntrySession session(run.workspace, NewEntryOf(run, texts, run.line.isImmediate, 0));
    Save(session, texts, change);
    change.Finish();
    return exitDone;
}

int Dump(const CommandRun& run) {
    std::string before = "[\n";
    bool isWhole = true;
    ForEachChosen(run, [&](const ListedEntry& entry) {
        const Sentence sentence = SentenceOf(entry);
        if (!sentence.trouble.empty()) {
            isWhole = false;
            const std::string state(TextOf(RunState::Unreadable));
            return run.answers.Tell({{"left out", JsonOf(CheckedEntry{entry.id, entry.record->EditorName,
                                                                      state, sentence.trouble})}});
        }
        EntrySession session(run.workspace, entry.record->Id);
        session.Load();
        Json object{{idKey, entry.id}};
        for (const auto& [word, text] : ReadWords(session)) object[std::string(word->name)] = text;
        run.answers.Tell({{"plan", std::exchange(before, ",\n") + Dumped(object)}});
    });
    run.answers.Tell({{"plan", (before == "[\n" ? "[" : "\n") + std::string("]\n")}});
    return isWhole ? exitDone : exitRefused;
}

int Apply(const CommandRun& run) {
    const Json plan = ReadPlan(run);
    Change change(run);
    Matching matching(run);
    int counts[3] = {};
    for (std::size_t i = 0; i < plan.size(); ++i) {
        try {
            ++counts[static_cast<int>(ApplyOne(run, matching, plan[i], change))];
        } catch (UsageError& error) {
            if (error.place) error.place->file = run.line.file;
            if (error.place) throw;
            throw UsageError("The plan's entry " + std::to_string(i + 1) + ": " + error.what());
        }
    }
    change.Tell({{"applied", {{"created", counts[0]}, {"changed", counts[1]}, {"unchanged", counts[2]}}}});
    change.Finish();
    return exitDone;
}

}  // namespace NolSchedCtls
