#include "host/cli/plan_commands.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <limits>
#include <map>
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
constexpr std::int32_t highestId = 2'000'000'000;  // so that the store has ids to give after it

enum class Outcome { Created, Changed, Unchanged };

Json JsonOfChanges(const std::vector<WordChange>& changes) {
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
                   {"changes", JsonOfChanges(changes)}}}});
}

UsageError::Place PlaceOf(const CNolSchedData& record) {
    return {{}, 0, record.IsNew ? 0 : record.Id, record.EditorName};
}

// Throws RefusedError for what a tab refuses; gives whether the store held it all already.
bool SaveOrRefuse(EntrySession& session, EntrySession::PastEnd pastEnd) {
    const UsageError::Place place = PlaceOf(session.Record());
    const auto [refusal, isUnchanged] = session.Save(pastEnd);
    if (refusal != nullptr)
        throw RefusedError("the tab " + std::string(refusal->title) + " refuses it.", place);
    return isUnchanged;
}

// What no page shows: pausing an entry asks none of them.
bool IsOwn(const std::vector<WordChange>& changes) {
    const auto isOwn = [](const WordChange& change) {
        return WordNamed(std::string(change.word)).field.empty();
    };
    return !changes.empty() && std::ranges::all_of(changes, isOwn);
}

using PastEnd = EntrySession::PastEnd;
using JudgeEnd = PastEnd (*)(const std::vector<WordChange>&);

// Nobody means to set an end that has passed; one that stood may stand.
PastEnd JudgeByChange(const std::vector<WordChange>& changes) {
    return std::ranges::find(changes, "end", &WordChange::word) == changes.end() ? PastEnd::Stands
                                                                                 : PastEnd::Refused;
}

// A plan tells of entries that may have ended.
PastEnd LetStand(const std::vector<WordChange>& /*changes*/) { return PastEnd::Stands; }

// Throws UsageError that names the entry.
Outcome Save(EntrySession& session, const WordTexts& texts, Change& change,
             JudgeEnd pastEnd = JudgeByChange) {
    const CNolSchedData& record = session.Record();
    const bool isNew = record.IsNew;
    const UsageError::Place place = PlaceOf(record);
    session.Load();
    const WordTexts before = ReadWords(session);
    std::vector<WordChange> changes;
    bool isUnchanged = false;
    try {
        WriteWords(session, texts);
        changes = ChangesBetween(before, ReadWords(session));
        isUnchanged = !isNew && changes.empty();
        if (IsOwn(changes) && !isNew)
            session.SaveOwn();
        else if (!isUnchanged)
            isUnchanged = SaveOrRefuse(session, pastEnd(changes));
    } catch (UsageError& error) {
        error.place = place;
        throw;
    }
    const Outcome outcome = isNew ? Outcome::Created : isUnchanged ? Outcome::Unchanged : Outcome::Changed;
    if (isNew) changes.clear();
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
        if (planned.id < 1 || planned.id > highestId)
            throw UsageError("Id is a number from 1 to " + std::to_string(highestId) + ", not " +
                             value.dump() + ".");
    }
    return planned;
}

// What the parser takes without a word: a key that comes twice, and what no plan holds. Takes each entry out
// of the list at once, since the parser goes through all that stay after each, and keeps it as text, which
// takes a tenth of its memory.
class PlanReader {
  public:
    explicit PlanReader(Json::array_t& entriesA) : entries(entriesA) {}

    bool operator()(int depth, Json::parse_event_t event, Json& parsed) {
        using Event = Json::parse_event_t;
        if (depth > 2) throw UsageError("it is no list of entries");
        if (event == Event::object_start) keys.clear();
        if (event == Event::key && !keys.insert(parsed.get<std::string>()).second)
            throw UsageError("an entry has " + parsed.get<std::string>() + " twice");
        if (depth != 1 || event == Event::object_start || event == Event::array_start || event == Event::key)
            return true;
        entries.push_back(parsed.dump());
        return false;
    }

  private:
    Json::array_t& entries;
    std::set<std::string> keys;
};

std::string ReadText(const std::string& file, std::istream& standardInput) {
    std::ifstream opened;
    if (file != "-") opened.open(file);
    std::istream& stream = file == "-" ? standardInput : opened;
    std::string text;
    std::getline(stream, text, '\0');
    if (stream.bad() || (file != "-" && !opened.is_open())) throw UsageError(std::strerror(errno));
    return text;
}

void MakeMissing(const CommandRun& run, const WordTexts& texts, Change& change) {
    DocumentStore& documents = run.workspace.Documents();
    for (const auto& [word, text] : texts) {
        const bool isGroup = word->name == "group";
        if ((!isGroup && !word->name.ends_with(".scenario")) || text == noText) continue;
        const CaddisDocumentType type = isGroup ? DocumentTypes().TypeByName(MAppConstants::nolGroup)
                                                : CaddisScenarios().ScenarioDocumentType();
        const auto isNamed = [&text = text](const auto& document) { return document->Name == text; };
        if (std::ranges::none_of(documents.DocumentsOfType(type), isNamed)) {
            documents.Add(type, text);
            change.Tell({{"added", {{"Type", type.Name}, {"Name", text}}}});
        }
    }
}

// Which stored entry a planned one means: that of its Id, and by its name where it has none or names alone
// count.
class Matching {
  public:
    explicit Matching(const CommandRun& run) : isByName(run.line.matchesNames) {
        run.workspace.Entries().ForAll(
            [this](const ListedEntry& entry) { Rename(entry.id, entry.record->EditorName); });
    }

    // Also of a new one.
    void Rename(std::int64_t id, const std::string& name) {
        const auto [named, isNew] = nameOf.try_emplace(id, name);
        if (!isNew) {
            if (named->second == name) return;
            const auto [first, last] = names.equal_range(named->second);
            names.erase(
                std::find(first, last, std::pair<const std::string, std::int64_t>(named->second, id)));
            named->second = name;
        }
        names.emplace(name, id);
    }

    // The Id of a new one: 0 for the store's next.
    std::int32_t NewId(const Planned& planned) const { return isByName ? 0 : planned.id; }

    // 0 for none.
    std::int32_t IdOf(const Planned& planned) {
        if (NewId(planned) != 0) return Met(nameOf.contains(planned.id) ? planned.id : 0);
        const std::string* const name = TextOf(planned.texts, "name");
        if (name == nullptr) throw UsageError("it lacks its name.");
        if (names.count(*name) > 1)
            throw UsageError("there are " + std::to_string(names.count(*name)) + " entries named " +
                             Quoted(*name) + ".");
        const auto found = names.find(*name);
        return Met(found == names.end() ? 0 : found->second);
    }

    // Each entry is meant but once.
    std::int32_t Met(std::int64_t id) {
        if (id != 0 && !met.insert(id).second)
            throw UsageError("another one of the plan means the same entry.");
        if (id > std::numeric_limits<std::int32_t>::max())
            throw UsageError("the entry " + std::to_string(id) + " has an Id that no entry can have.");
        return static_cast<std::int32_t>(id);
    }

  private:
    bool isByName;
    std::map<std::int64_t, std::string> nameOf;
    std::set<std::int64_t> met;
    std::multimap<std::string, std::int64_t> names;
};

Outcome ApplyOne(const CommandRun& run, Matching& matching, const std::string& text, Change& change) {
    const Planned planned = PlannedOf(Json::parse(text));
    MakeMissing(run, planned.texts, change);
    if (const std::int32_t id = matching.IdOf(planned); id != 0) {
        EntrySession session(run.workspace, id);
        const Outcome outcome = Save(session, planned.texts, change, LetStand);
        matching.Rename(id, session.Record().EditorName);
        return outcome;
    }
    EntrySession session(run.workspace, NewEntryOf(run, planned.texts, false, matching.NewId(planned)));
    const Outcome outcome = Save(session, planned.texts, change, LetStand);
    matching.Rename(session.Record().Id, session.Record().EditorName);
    matching.Met(session.Record().Id);
    return outcome;
}

}  // namespace

Json ReadPlan(const CommandLine& line, Terminal& terminal) {
    const auto about = [&line] { return "The plan " + Quoted(line.file) + " cannot be read: "; };
    Json::array_t entries;
    const auto readsList = [&] {
        try {
            return Json::parse(ReadText(line.file, terminal.in), PlanReader(entries)).is_array();
        } catch (const Json::exception& error) {
            throw UsageError(error.what());
        }
    };
    if (!Explained<UsageError>(readsList, about)) throw UsageError(about() + "it is no list of entries");
    return entries;
}

int Set(const CommandRun& run) {
    const WordTexts texts = ParseWords(run.line.words);
    if (texts.empty()) throw UsageError("set lacks WORD=TEXT, as period=Weekly.");
    Change change(run, AgreedTo(run));
    for (const std::int32_t id : change.Entries()) {
        EntrySession session(run.workspace, id);
        Save(session, texts, change);
    }
    change.Finish();
    return exitDone;
}

int Duplicate(const CommandRun& run) {
    Change change(run, AgreedTo(run));
    for (const std::int32_t id : change.Entries()) {
        EntrySession copy(run.workspace, EntrySession::CopyOf{id});
        copy.Load();
        SaveOrRefuse(copy, PastEnd::Stands);
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

// As the store stands at one moment; told after it, since a slow reader would keep savers waiting.
int Dump(const CommandRun& run) {
    std::vector<Json> told;
    std::string before = "[\n";
    bool isWhole = true;
    {
        const Transaction reading(run.workspace.Store(), Access::Read);
        ForEachChosen(run, [&](const ListedEntry& entry) {
            const Sentence sentence = SentenceOf(entry);
            if (!sentence.trouble.empty()) {
                isWhole = false;
                const std::string state(TextOf(RunState::Unreadable));
                told.push_back({{"left out", JsonOf(CheckedEntry{entry.id, entry.record->EditorName, state,
                                                                 sentence.trouble})}});
                return;
            }
            EntrySession session(run.workspace, entry.record->Id);
            session.Load();
            Json object{{idKey, entry.id}};
            for (const auto& [word, text] : ReadWords(session)) object[std::string(word->name)] = text;
            told.push_back({{"plan", std::exchange(before, ",\n") + Dumped(object)}});
        });
    }
    told.push_back({{"plan", (before == "[\n" ? "[" : "\n") + std::string("]\n")}});
    for (const Json& answer : told) run.answers.Tell(answer);
    return isWhole ? exitDone : exitRefused;
}

int Apply(const CommandRun& run) {
    const Json& plan = run.input;
    Change change(run);
    run.workspace.Store().LockMaking();  // two that apply one plan would both make its entries
    Matching matching(run);
    int counts[3] = {};
    for (std::size_t i = 0; i < plan.size(); ++i) {
        try {
            const auto& text = plan[i].get_ref<const std::string&>();
            ++counts[static_cast<int>(ApplyOne(run, matching, text, change))];
        } catch (UsageError& error) {
            if (error.place) error.place->file = run.line.file;
            if (error.place) throw;
            throw UsageError("The plan's entry " + std::to_string(i + 1) + ": " + error.what());
        } catch (const StoreError& error) {
            throw StoreError(std::string(error.what()) + " (the plan's entry " + std::to_string(i + 1) + ")",
                             error.kind, error.transaction);
        }
    }
    change.Tell({{"applied", {{"created", counts[0]}, {"changed", counts[1]}, {"unchanged", counts[2]}}}});
    change.Finish();
    return exitDone;
}

}  // namespace NolSchedCtls
