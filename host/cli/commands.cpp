#include "host/cli/commands.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <limits>
#include <optional>
#include <ostream>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "host/cli/acts.h"
#include "host/cli/command_line.h"
#include "host/cli/script.h"
#include "host/entries/entry_sentence.h"
#include "host/entries/entry_session.h"

namespace NolSchedCtls {

namespace {

struct Run {
    const CommandLine& line;
    Terminal& terminal;
    Answers& answers;
    Workspace& workspace;

    // What stands behind the command, or nothing.
    std::optional<std::string> Word(std::size_t place) const {
        if (place >= line.words.size()) return {};
        return line.words[place];
    }

    std::int32_t Id() const {
        const std::string text = Word(1).value_or("");
        if (const auto id = ParseWhole(text)) return *id;
        throw UsageError(line.words.front() + " takes the id of an entry, not " + Quoted(text) + ".");
    }
};

int RunScript(const Run& run, EntrySession& session, const std::optional<std::string>& file) {
    Script script(session, run.answers);
    session.Load();
    if (!file || *file == "-")
        return script.Run(run.terminal.in, run.terminal.isInteractive ? &run.terminal.err : nullptr);
    std::ifstream lines(*file);
    if (!lines) throw UsageError("The script " + Quoted(*file) + " cannot be read.");
    return script.Run(lines, nullptr);
}

void TellEntry(const Run& run, const ListedEntry& entry) {
    run.answers.Tell({{"entry",
                       {{"Id", entry.record->Id},
                        {"EditorName", entry.record->EditorName},
                        {"group", entry.sGroup},
                        {"sentence", SentenceOf(entry)},
                        {"overrides", entry.sKinds}}}});
}

// Page by page, so that a store of any size takes the same memory.
int List(const Run& run) {
    constexpr int pageSize = 500;
    std::int64_t lastId = std::numeric_limits<std::int32_t>::min();
    for (int told = pageSize; told == pageSize;) {
        told = 0;
        const auto tell = [&](const ListedEntry& entry) {
            TellEntry(run, entry);
            lastId = entry.record->Id;
            ++told;
        };
        run.workspace.Entries().ForEach(tell, lastId, pageSize);
    }
    return exitDone;
}

int Show(const Run& run) {
    const StoredEntry entry = run.workspace.Entries().Load(run.Id());
    Json answer = JsonOf(*entry.record);
    answer.erase("overrides");
    answer["sentence"] = SentenceOf(entry.record);
    Json& rows = answer["rows"] = Json::array();
    for (const auto& columns : run.workspace.Entries().OverrideRows(entry.record->Id)) {
        Json& row = rows.emplace_back();
        for (const auto& column : columns) row[column.Name] = JsonOf(column.Value);
    }
    run.answers.Tell(answer);
    return exitDone;
}

CaddisDocumentType GroupType() { return DocumentTypes().TypeByName(MAppConstants::nolGroup); }

int New(const Run& run) {
    EntrySession::NewEntry entry;
    entry.fIsImmediate = run.line.Has("--immediate");
    entry.sName = run.line.Text("--name", entry.fIsImmediate ? "New Immediate Entry" : "New Schedule Entry");
    if (run.line.Has("--group"))
        entry.nRptGrpId =
            run.workspace.Documents().DocumentNamed(GroupType(), run.line.Text("--group", ""))->Id;
    EntrySession session(run.workspace, entry);
    return RunScript(run, session, run.Word(1));
}

int Edit(const Run& run) {
    EntrySession session(run.workspace, run.Id());
    return RunScript(run, session, run.Word(2));
}

int Duplicate(const Run& run) {
    EntrySession copy(run.workspace, EntrySession::CopyOf{run.Id()});
    Script script(copy, run.answers);
    copy.Load();
    script.Save();
    return script.Verdict();
}

int Delete(const Run& run) {
    run.workspace.Entries().Delete(run.Id());
    run.answers.Tell({{"deleted", run.Id()}});
    return exitDone;
}

CaddisDocumentType TypeOfWord(const std::string& word) {
    if (word == "group") return GroupType();
    if (word == "scenario") return CaddisScenarios().ScenarioDocumentType();
    throw UsageError("There is no type of document " + Quoted(word) + "; there are group and scenario.");
}

int Documents(const Run& run) {
    const auto verb = run.Word(1);
    if (!verb) {
        for (const auto& document : run.workspace.Documents().AllDocuments())
            run.answers.Tell(
                {{"document",
                  {{"Id", document->Id}, {"Type", document->DocumentType.Name}, {"Name", document->Name}}}});
        return exitDone;
    }
    if (*verb != "add" && *verb != "delete")
        throw UsageError("documents takes add or delete, not " + Quoted(*verb) + ".");
    const auto name = run.Word(3);
    if (!name || name->empty()) throw UsageError("documents " + *verb + " takes a TYPE and a NAME.");
    const auto type = TypeOfWord(*run.Word(2));
    if (*verb == "add")
        run.workspace.Documents().Add(type, *name);
    else
        run.workspace.Documents().Delete(type, *name);
    return exitDone;
}

struct Command {
    std::string_view name;
    std::size_t mostWords;  // the command's own included
    int (*run)(const Run&);
};

constexpr std::array commands = {
    Command{"list", 1, List},           Command{"show", 2, Show},           Command{"new", 2, New},
    Command{"edit", 3, Edit},           Command{"duplicate", 2, Duplicate}, Command{"delete", 2, Delete},
    Command{"documents", 4, Documents},
};

const Command& CommandOf(const CommandLine& line) {
    const std::string name = line.words.empty() ? "" : line.words.front();
    for (const auto& command : commands) {
        if (command.name != name) continue;
        if (line.words.size() > command.mostWords)
            throw UsageError(name + " does not take " + Quoted(line.words[command.mostWords]) + ".");
        return command;
    }
    throw UsageError(
        (name.empty() ? "A command is missing" : "There is no command " + Quoted(name)) +
        "; there are list, show, new, edit, duplicate, delete and documents (see nolsched --help).");
}

std::function<DateTime()> ClockOf(const CommandLine& line) {
    if (!line.Has("--now")) return {};
    try {
        return [now = ParseIso(line.Text("--now", ""))] { return now; };
    } catch (const NolSchedError& error) {
        throw UsageError(std::string("--now: ") + error.what());
    }
}

int RunCommand(const std::vector<std::string>& arguments, Terminal& terminal, Answers& answers) {
    const CommandLine line = ParseCommandLine(arguments);
    if (line.Has("--help")) {
        terminal.out << usageText;
        return exitDone;
    }
    if (line.Has("--version")) {
        terminal.out << "nolsched " NOLSCHED_VERSION "\n";
        return exitDone;
    }
    const Command& command = CommandOf(line);
    const auto showMessage = [&answers](const Message& message) {
        answers.Tell(
            {{"message", {{"text", message.text}, {"flags", message.flags}, {"title", message.title}}}});
    };
    Workspace workspace({line.Text("--db", "nolsched.db"), terminal.sUser, showMessage, ClockOf(line)});
    return command.run({line, terminal, answers, workspace});
}

}  // namespace

int RunNolsched(const std::vector<std::string>& arguments, Terminal& terminal) {
    Answers answers(terminal.out, terminal.err);
    if (std::find(arguments.begin(), arguments.end(), "--json") != arguments.end()) answers.UseJson();
    try {
        return RunCommand(arguments, terminal, answers);
    } catch (const UsageError& error) {
        answers.Tell({{"error", error.what()}});
        return exitUsage;
    } catch (const RequestError& error) {
        answers.Tell({{"error", error.what()}});
        return exitUsage;
    } catch (const std::exception& error) {
        answers.Tell({{"failure", error.what()}});
        return exitStore;
    }
}

}  // namespace NolSchedCtls
