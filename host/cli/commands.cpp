#include "host/cli/commands.h"

#include <unistd.h>
#include <algorithm>
#include <array>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <limits>
#include <ostream>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "host/cli/command_line.h"
#include "host/cli/field_rules.h"
#include "host/cli/outlook_commands.h"
#include "host/cli/plan_commands.h"
#include "host/cli/prompt.h"
#include "host/cli/script.h"
#include "host/cli/show_commands.h"
#include "host/cli/words.h"
#include "host/entries/entry_outlook.h"
#include "host/entries/entry_session.h"
#include "host/entries/entry_watch.h"

namespace NolSchedCtls {

namespace {

using namespace std::chrono_literals;

[[noreturn]] void RefuseScript(const std::string& file) {
    throw UsageError("The script " + Quoted(WithoutPassword(file)) +
                     " cannot be read: " + std::strerror(errno) + ".");
}

int RunScript(const CommandRun& run, EntrySession& session) {
    const bool isPrompt = run.terminal.isInteractive && run.line.script.value_or("-") == "-";
    if (!run.line.script && !isPrompt)
        throw UsageError(run.line.command + " lacks SCRIPT: a file, or - for standard input.");
    const std::string file = run.line.script.value_or("-");
    Script script(run.workspace, session, run.answers);
    session.Load();
    const Unsaved unsaved = run.line.discards ? Unsaved::Discard : Unsaved::Refuse;
    if (isPrompt) return RunPrompt(run, session, script);
    if (file == "-") return script.Run(run.terminal.in, "standard input", unsaved);
    std::ifstream lines(file);
    if (!lines) RefuseScript(file);
    return script.Run(lines, file, unsaved);
}

CaddisDocumentType GroupType() { return DocumentTypes().TypeByName(MAppConstants::nolGroup); }

int New(const CommandRun& run) {
    if (!run.line.words.empty()) return NewByWords(run);
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

int Delete(const CommandRun& run) {
    Change change(run, AgreedTo(run));
    for (const std::int32_t id : change.Entries()) {
        run.workspace.Entries().Delete(id);
        change.Tell({{"deleted", id}});
    }
    change.Finish();
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
            if (trouble != error.what()) run.answers.TellFailure(error);
            trouble = error.what();
        }
    }
    return exitDone;
}

[[noreturn]] void RefuseType(const std::string& word) {
    throw UsageError("There is no type of document " + Quoted(word) + "; there are group and scenario.");
}

CaddisDocumentType TypeOfWord(const std::string& word) {
    if (word == "group") return GroupType();
    if (word == "scenario") return CaddisScenarios().ScenarioDocumentType();
    RefuseType(word);
}

int Documents(const CommandRun& run) {
    for (const auto& document : run.workspace.Documents().AllDocuments())
        run.answers.Tell(
            {{"document",
              {{"Id", document->Id}, {"Type", document->DocumentType.Name}, {"Name", document->Name}}}});
    return exitDone;
}

const std::string& NameOfDocument(const CommandLine& line) {
    if (line.document.empty()) throw UsageError(line.command + " takes a NAME that is not empty.");
    return line.document;
}

int AddOneDocument(const CommandRun& run) {
    const CaddisDocumentType type = TypeOfWord(run.line.type);
    AddDocument(run.workspace, type, NameOfDocument(run.line));
    run.answers.Tell({{"added", {{"Type", type.Name}, {"Name", run.line.document}}}});
    return exitDone;
}

int DeleteOneDocument(const CommandRun& run) {
    const CaddisDocumentType type = TypeOfWord(run.line.type);
    try {
        DeleteDocument(run.workspace, type, NameOfDocument(run.line),
                       run.line.isForced ? InUse::Deleted : InUse::Refused);
    } catch (const InUseError& error) {
        throw RequestError(error.what() + std::string("; --force deletes it nevertheless."));
    }
    return exitDone;
}

// The store has been made by then.
int Init(const CommandRun& run) {
    if (!run.workspace.IsMade()) throw RequestError(run.workspace.Store().Name() + " is there already.");
    return exitDone;
}

int TellFields(const CommandRun& run) {
    const EntrySession session(run.workspace, EntrySession::NewEntry{});
    const Page* const chosen = run.line.tab ? &PageNamed(session, *run.line.tab) : nullptr;
    for (const Page& page : session.Pages()) {
        if (chosen != nullptr && &page != chosen) continue;
        for (const Json& field : FieldRules(run.workspace, page.name).Told())
            run.answers.Tell({{"field", field}});
    }
    return exitDone;
}

// A wrong line makes no store.
Json CheckNew(const CommandLine& line, Terminal& /*terminal*/) {
    const bool isOfScript = line.script || line.name || line.group || line.discards;
    if (!line.words.empty() && isOfScript)
        throw UsageError("new takes words, or a SCRIPT with --name, --group and --discard, not both.");
    if (line.words.empty() && line.isDryRun) throw UsageError("new takes --dry-run with words alone.");
    ParseWords(line.words);
    if (line.script.value_or("-") != "-" && access(line.script->c_str(), R_OK) != 0)
        RefuseScript(*line.script);
    return {};
}

Json CheckDocument(const CommandLine& line, Terminal& /*terminal*/) {
    if (line.type != "group" && line.type != "scenario") RefuseType(line.type);
    CheckDocumentName(NameOfDocument(line));
    return {};
}

struct Command {
    std::string_view name;
    int (*carryOut)(const CommandRun&);
    MissingStore missing = MissingStore::Refuse;
    Json (*readInput)(const CommandLine&, Terminal&) = nullptr;  // before the store is opened
};

const Command& CommandNamed(const std::string& given) {
    using enum MissingStore;
    static constexpr auto commands = std::to_array<Command>({
        {"list", List},
        {"show", Show},
        {"new", New, Make, CheckNew},
        {"edit", Edit},
        {"duplicate", Duplicate},
        {"delete", Delete},
        {"set", Set},
        {"dump", Dump},
        {"apply", Apply, Make, ReadPlan},
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
        {"documents add", AddOneDocument, Make, CheckDocument},
        {"documents delete", DeleteOneDocument},
        {"init", Init, Make},
    });
    const auto* const found = std::ranges::find(commands, given, &Command::name);
    if (found == commands.end()) throw UsageError("The command " + Quoted(given) + " does nothing.");
    return *found;
}

WorkspaceOptions OptionsOf(const CommandLine& line, const Command& command, const Terminal& terminal,
                           Answers& answers) {
    const auto showMessage = [&answers](const Message& message) {
        answers.Tell(
            {{"message", {{"text", message.text}, {"flags", message.flags}, {"title", message.title}}}});
    };
    const bool isBare = command.carryOut == Init && !line.hasSamples;
    return {line.address,
            terminal.user,
            showMessage,
            line.now,
            line.region,
            line.isDryRun ? MissingStore::Refuse : command.missing,
            isBare ? Samples::None : Samples::Documents};
}

int RunLine(const std::vector<std::string>& arguments, Terminal& terminal, Answers& answers) {
    const CommandLine line = ReadCommandLine(arguments, [&answers] { answers.UseJson(); });
    if (!line.answer.empty()) {
        terminal.out << line.answer;
        Flush(terminal.out, "standard output");
        return exitDone;
    }
    answers.UseStore(WithoutPassword(line.address));
    const Command& command = CommandNamed(line.command);
    const Json input = command.readInput == nullptr ? Json() : command.readInput(line, terminal);
    Workspace workspace(OptionsOf(line, command, terminal, answers));
    answers.UseStore(workspace.Store().Name());
    if (workspace.IsMade()) answers.Tell({{"made", workspace.Store().Name()}});
    const int status = command.carryOut({line, terminal, answers, workspace, input});
    answers.EndRows();
    return status;
}

// How a run ends that has failed; the status alone, if that cannot be told either.
int End(Answers& answers, const std::function<void()>& tell, ExitStatus status) {
    try {
        tell();
        return status;
    } catch (const OutputError& lost) {
        return answers.IsLost() ? status
                                : End(
                                      answers, [&] { answers.TellFailure(lost); }, exitStore);
    }
}

// A store that is not there is no failure that lasts.
void TellStoreFailure(Answers& answers, const StoreError& error) {
    if (error.kind != StoreError::Kind::Missing) return answers.TellFailure(error);
    answers.TellFailure(StoreError(std::string(error.what()) + " (nolsched init makes it)", error.kind));
}

}  // namespace

int RunNolsched(const std::vector<std::string>& arguments, Terminal& terminal) {
    Answers answers(terminal.out, terminal.err, terminal.width);
    try {
        return RunLine(arguments, terminal, answers);
    } catch (const RefusedError& error) {
        return End(
            answers, [&] { answers.Tell(JsonOf(error)); }, exitRefused);
    } catch (const UsageError& error) {
        return End(
            answers, [&] { answers.Tell(JsonOf(error)); }, exitUsage);
    } catch (const RequestError& error) {
        return End(
            answers, [&] { answers.Tell(JsonOf(UsageError(error.what()))); }, exitUsage);
    } catch (const StoreError& error) {
        return End(
            answers, [&] { TellStoreFailure(answers, error); }, exitStore);
    } catch (const std::exception& error) {
        return End(
            answers, [&] { answers.TellFailure(error); }, exitStore);
    }
}

}  // namespace NolSchedCtls
