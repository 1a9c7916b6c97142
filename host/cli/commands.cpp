#include "host/cli/commands.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <limits>
#include <ostream>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"
#include "host/cli/command_line.h"
#include "host/cli/field_rules.h"
#include "host/cli/outlook_commands.h"
#include "host/cli/script.h"
#include "host/entries/entry_outlook.h"
#include "host/entries/entry_sentence.h"
#include "host/entries/entry_session.h"
#include "host/entries/entry_watch.h"
#include "outlook/description.h"

namespace NolSchedCtls {

namespace {

using namespace std::chrono_literals;

int RunScript(const CommandRun& run, EntrySession& session) {
    const std::string& file = run.line.script;
    Script script(run.workspace, session, run.answers);
    session.Load();
    if (file == "-")
        return script.Run(run.terminal.in, run.terminal.isInteractive ? &run.terminal.err : nullptr);
    std::ifstream lines(file);
    if (!lines)
        throw UsageError("The script " + Quoted(WithoutPassword(file)) +
                         " cannot be read: " + std::strerror(errno) + ".");
    return script.Run(lines, nullptr);
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

int List(const CommandRun& run) {
    const EntryOutlook outlook(run.workspace);
    if (!run.answers.IsJson()) run.answers.Tell({{"columns", nullptr}});
    ForEachChosen(run, [&](const ListedEntry& entry) {
        Json told = run.answers.IsJson() ? ListedProperties(entry) : Json();
        told.update(Json{{"Id", entry.id},
                         {"EditorName", entry.record->EditorName},
                         {"group", entry.group},
                         {"sentence", nullptr},
                         {"overrides", entry.kinds}});
        told.update(ScheduleJson(entry, outlook));
        run.answers.Tell({{"entry", told}});
    });
    return exitDone;
}

int Show(const CommandRun& run) {
    const Transaction reading(run.workspace.Store(), Access::Read);
    const StoredEntry entry = run.workspace.Entries().Load(*run.line.id);
    Json answer = JsonOf(*entry.record);
    const auto tellSchedule = [&](const ListedEntry& listed) {
        const EntryOutlook outlook(run.workspace);
        answer.update(ScheduleJson(listed, outlook));
        answer["description"] = DescribeSchedule(*listed.record, outlook.Settings());
    };
    run.workspace.Entries().ForOne(*run.line.id, tellSchedule);
    Json& rows = answer["overrides"] = Json::array();
    for (const auto& columns : run.workspace.Entries().OverrideRows(entry.record->Id)) {
        Json& row = rows.emplace_back();
        for (const auto& column : columns) row[column.Name] = JsonOf(column.Value);
    }
    run.answers.Tell(answer);
    return exitDone;
}

CaddisDocumentType GroupType() { return DocumentTypes().TypeByName(MAppConstants::nolGroup); }

int New(const CommandRun& run) {
    EntrySession::NewEntry entry;
    entry.isImmediate = run.line.isImmediate;
    entry.name = run.line.name.value_or(entry.isImmediate ? "New Immediate Entry" : "New Schedule Entry");
    if (run.line.group)
        entry.groupId = run.workspace.Documents().DocumentNamed(GroupType(), *run.line.group)->Id;
    EntrySession session(run.workspace, entry);
    return RunScript(run, session);
}

int Edit(const CommandRun& run) {
    EntrySession session(run.workspace, *run.line.id);
    return RunScript(run, session);
}

int Duplicate(const CommandRun& run) {
    EntrySession copy(run.workspace, EntrySession::CopyOf{*run.line.id});
    Script script(run.workspace, copy, run.answers);
    copy.Load();
    script.Save();
    return script.Verdict();
}

int Delete(const CommandRun& run) {
    run.workspace.Entries().Delete(*run.line.id);
    run.answers.Tell({{"deleted", *run.line.id}});
    return exitDone;
}

// A lost connection is told once and looked for again; what was missed meanwhile is told then.
int Watch(const CommandRun& run) {
    using enum StoreError::Kind;
    EntryWatch watch(run.workspace.Store());
    std::string trouble;
    EntryWatch::Visit visit = [](const auto&) {};  // what stands at the start is no change
    const auto tell = [&answers = run.answers](const std::vector<EntryChange>& changes) {
        for (const auto& [id, isDeleted] : changes)
            answers.Tell({{"watch", {{"Id", id}, {"act", isDeleted ? "deleted" : "saved"}}}});
    };
    run.workspace.Store().onWait = [&run](auto) { return run.terminal.pause(0ms); };
    for (auto wait = 0ms; run.terminal.pause(wait); wait = 50ms) {
        try {
            watch.Look(visit);
            visit = tell;
            trouble.clear();
        } catch (const StoreError& error) {
            if (error.kind == Busy) continue;
            if (error.kind != Connection) throw;
            if (trouble != error.what()) run.answers.Tell({{"failure", error.what()}});
            trouble = error.what();
        }
    }
    return exitDone;
}

CaddisDocumentType TypeOfWord(const std::string& word) {
    if (word == "group") return GroupType();
    if (word == "scenario") return CaddisScenarios().ScenarioDocumentType();
    throw UsageError("There is no type of document " + Quoted(word) + "; there are group and scenario.");
}

int Documents(const CommandRun& run) {
    for (const auto& document : run.workspace.Documents().AllDocuments())
        run.answers.Tell(
            {{"document",
              {{"Id", document->Id}, {"Type", document->DocumentType.Name}, {"Name", document->Name}}}});
    return exitDone;
}

template <auto change>
int ChangeDocuments(const CommandRun& run) {
    const std::string& name = run.line.document;
    if (name.empty()) throw UsageError(run.line.command + " takes a NAME that is not empty.");
    (run.workspace.Documents().*change)(TypeOfWord(run.line.type), name);
    return exitDone;
}

int TellFields(const CommandRun& run) {
    const EntrySession session(run.workspace, EntrySession::NewEntry{});
    const Page* const chosen = run.line.tab ? &PageNamed(session, *run.line.tab) : nullptr;
    for (const Page& page : session.Pages()) {
        if (chosen != nullptr && &page != chosen) continue;
        for (const Json& field : FieldRules(run.workspace, run.answers, page.name).Told())
            run.answers.Tell({{"field", field}});
    }
    return exitDone;
}

int RunCommand(const CommandRun& run) {
    constexpr std::pair<std::string_view, int (*)(const CommandRun&)> commands[] = {
        {"list", List},
        {"show", Show},
        {"new", New},
        {"edit", Edit},
        {"duplicate", Duplicate},
        {"delete", Delete},
        {"watch", Watch},
        {"runs", TellRuns},
        {"check", Check},
        {"export", Export},
        {"holidays", TellHolidays},
        {"holidays add", AddHoliday},
        {"holidays delete", DeleteHoliday},
        {"holidays import", ImportHolidays},
        {"fields", TellFields},
        {"documents", Documents},
        {"documents add", ChangeDocuments<&DocumentStore::Add>},
        {"documents delete", ChangeDocuments<&DocumentStore::Delete>}};
    for (const auto& [name, carryOut] : commands)
        if (name == run.line.command) return carryOut(run);
    throw UsageError("The command " + Quoted(run.line.command) + " does nothing.");
}

int RunLine(const std::vector<std::string>& arguments, Terminal& terminal, Answers& answers) {
    const CommandLine line = ReadCommandLine(arguments, [&answers] { answers.UseJson(); });
    if (!line.answer.empty()) {
        terminal.out << line.answer;
        Flush(terminal.out, "standard output");
        return exitDone;
    }
    const auto showMessage = [&answers](const Message& message) {
        answers.Tell(
            {{"message", {{"text", message.text}, {"flags", message.flags}, {"title", message.title}}}});
    };
    Workspace workspace({line.address, terminal.user, showMessage, line.now});
    return RunCommand({line, terminal, answers, workspace});
}

// How a run ends that has failed; the status alone, if that cannot be told either.
int End(Answers& answers, const char* kind, const std::exception& error, ExitStatus status) {
    try {
        answers.Tell({{kind, error.what()}});
        return status;
    } catch (const OutputError& lost) {
        return answers.IsLost() ? status : End(answers, "failure", lost, exitStore);
    }
}

}  // namespace

void ForEachChosen(const CommandRun& run, const std::function<void(const ListedEntry&)>& visit) {
    const EntryStore& entries = run.workspace.Entries();
    if (run.line.ids.empty()) return entries.ForAll(visit);
    for (const std::int32_t id : run.line.ids) entries.ForOne(id, [](const ListedEntry&) {});
    for (const std::int32_t id : run.line.ids) entries.ForOne(id, visit);
}

int RunNolsched(const std::vector<std::string>& arguments, Terminal& terminal) {
    Answers answers(terminal.out, terminal.err, terminal.width);
    try {
        return RunLine(arguments, terminal, answers);
    } catch (const UsageError& error) {
        return End(answers, "error", error, exitUsage);
    } catch (const RequestError& error) {
        return End(answers, "error", error, exitUsage);
    } catch (const std::exception& error) {
        return End(answers, "failure", error, exitStore);
    }
}

}  // namespace NolSchedCtls
