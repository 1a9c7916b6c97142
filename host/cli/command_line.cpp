#include "host/cli/command_line.h"

#include <CLI/CLI.hpp>

#include "NolSchedCtls/base/text.h"
#include "host/cli/completion.h"
#include "host/cli/manual.h"
#include "host/cli/words.h"
#include "host/entries/visible_text.h"

namespace NolSchedCtls {

namespace {

constexpr const char* scriptHelp = "A file, or - for standard input; at a terminal a prompt\nwhere left out";

constexpr const char* footer =
    "nolsched help COMMAND tells what a command takes, with examples; so does\n"
    "nolsched COMMAND --help. An entry is moved to the last Friday of the month by\n"
    "  nolsched set 12 period=Monthly on=\"Last Friday\"\n"
    "Exit status: 0 done, 1 refused by a tab or found by check, 2 a wrong command or\n"
    "script line, 3 the store or the output failed. Of a text, a control stands as \\n\n"
    "or \\u009b, a backslash as \\\\.";

constexpr const char* scriptFooter =
    "\n\nA SCRIPT has one command a line, # begins a comment:\n"
    "  click TAB.FIELD         type TAB.FIELD TEXT     valid      runs [N]\n"
    "  pick TAB.FIELD TEXT     paste TAB.FIELD TEXT    save       record\n"
    "  date TAB.FIELD DATE     time TAB.FIELD TIME     changed\n"
    "  look [TAB[.FIELD]] [--all]\n"
    "      the fields as they stand; all: labels, frames and places, too\n"
    "A DATE is typed as 2026-12-24, 12/24/2026 or 24 Dec 2026, a TIME as 22:30,\n"
    "10:30 PM or 7. nolsched fields tells which fields there are, what they offer and\n"
    "when they are there.";

std::string WordHelp() {
    std::string help = "\n\nWords:";
    for (const Word& word : Words())
        help += "\n  " + Padded(std::string(word.name), 16) + std::string(word.takes);
    return help;
}

CLI::App& AddCommand(CLI::App& app, const std::string& name, const std::string& description) {
    return *app.add_subcommand(name, description)
                ->footer("")
                ->group(app.get_parent() == nullptr ? app.get_group() : "Commands");
}

void AddExamples(CLI::App& command, const std::string& examples, const std::string& more = "") {
    command.footer("Examples:\n" + examples + more);
}

// An empty text is one, too: the parser itself would make nothing of it.
CLI::Option* AddText(CLI::App& app, const std::string& name, std::optional<std::string>& text,
                     const char* description) {
    return app.add_option_function<std::string>(
        name, [&text](const std::string& given) { text = given; }, description);
}

CLI::Option* AddNumber(CLI::App& app, const std::string& name, std::optional<int>& number,
                       const char* description) {
    const auto take = [name, &number](const std::string& text) {
        number = ParseWhole(text);
        if (!number || *number < 1)
            throw UsageError(name + " takes a number from 1 on, not " + Quoted(text) + ".");
    };
    return app.add_option_function<std::string>(name, take, description)->type_name("N");
}

// Which entries a command is for.
void AddChoice(CLI::App& command, CommandLine& line, std::vector<std::string>* words = nullptr) {
    AddIds(command, line.ids, words);
    command.add_flag("--all", line.filter.isAll, "Every entry");
    AddText(command, "--name", line.filter.name, "Those whose name is like that: \"Site*\"")
        ->type_name("GLOB");
    AddText(command, "--group", line.filter.group, "Those of a study group")->type_name("GROUP");
    AddText(command, "--state", line.filter.state, "Those in a state, as list tells it: \"Never runs\"")
        ->type_name("STATE");
}

void AddRehearsal(CLI::App& command, CommandLine& line) {
    command.add_flag("--dry-run", line.isDryRun, "Tells what would change, and stores nothing");
}

void AddChange(CLI::App& command, CommandLine& line) {
    AddRehearsal(command, line);
    command.add_flag("--yes", line.isAgreed, "Asks for no agreement to what --all, --name, ... choose");
}

void AddListCommands(CLI::App& app, CommandLine& line) {
    auto& list = AddCommand(app, "list", "Lists entries");
    AddChoice(list, line);
    AddExamples(list,
                "  nolsched list --state \"Never runs\"\n"
                "  nolsched list --group \"North Cells\" --name \"Night*\"");
    AddChoice(AddCommand(app, "show", "Shows entries' fields, then their override rows"), line);
}

void AddNew(CLI::App& app, CommandLine& line) {
    auto& make = AddCommand(app, "new", "Makes an entry by words, or by a script");
    make.add_flag("--immediate", line.isImmediate, "Runs at once, without a schedule");
    AddText(make, "--name", line.name, "The entry's name, for a script")->type_name("NAME");
    AddText(make, "--group", line.group, "The study group to run, for a script")->type_name("GROUP");
    AddRehearsal(make, line);
    const auto take = [&line](const std::vector<std::string>& texts) {
        for (const auto& text : texts)
            if (text.find('=') == std::string::npos && !line.script)
                line.script = text;
            else
                line.words.push_back(text);
    };
    make.add_option_function<std::vector<std::string>>("WORD=TEXT or SCRIPT", take, scriptHelp)
        ->type_name("")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    AddExamples(make,
                "  nolsched new name=Nightly group=\"North Cells\" period=Daily at=22:30\n"
                "  nolsched new --name Nightly changes.txt\n"
                "nolsched help edit tells what a script says.",
                WordHelp());
}

void AddEdit(CLI::App& app, CommandLine& line) {
    auto& edit = AddCommand(app, "edit", "Runs a script on a stored entry");
    AddId(edit, line.id, "The entry's id")->required();
    AddText(edit, "SCRIPT", line.script, scriptHelp)->type_name("");
    AddExamples(edit, "  nolsched edit 12 changes.txt\n  nolsched edit 12", scriptFooter);
}

void AddEntryCommands(CLI::App& app, CommandLine& line) {
    AddListCommands(app, line);
    AddNew(app, line);
    auto& set = AddCommand(app, "set", "Changes entries by words: set 12 period=Weekly on=Monday");
    AddChoice(set, line, &line.words);
    AddChange(set, line);
    AddExamples(set,
                "  nolsched set 12 period=Monthly on=\"Last Friday\"\n"
                "  nolsched set --group \"North Cells\" active=off --dry-run",
                WordHelp());
    AddEdit(app, line);
    for (const char* command : {"new", "edit"})
        app.get_subcommand(command)->add_flag("--discard", line.discards,
                                              "Drops changes that no save of the script has stored");
    auto& duplicate = AddCommand(app, "duplicate", "Saves copies of entries under new ids");
    auto& remove = AddCommand(app, "delete", "Deletes entries");
    for (auto* command : {&duplicate, &remove}) {
        AddChoice(*command, line);
        AddChange(*command, line);
    }
}

void AddPlanCommands(CLI::App& app, CommandLine& line) {
    auto& dump = AddCommand(app, "dump", "Writes entries as a plan (JSON), by words");
    AddChoice(dump, line);
    AddExamples(dump, "  nolsched dump >plan.json\n  nolsched dump --group \"North Cells\" >north.json");
    auto& apply = AddCommand(app, "apply", "Makes and changes entries, and what they lack, by a plan");
    AddExamples(apply, "  nolsched apply plan.json --dry-run\n  nolsched apply plan.json --match name",
                "\n\nGroups and scenarios that are missing are made.");
    apply.add_option("FILE", line.file, "A plan, as dump writes it; - for standard input")
        ->required()
        ->type_name("");
    const auto match = [&line](const std::string& what) {
        if (what != "name" && what != "id")
            throw UsageError("--match takes name or id, not " + Quoted(what) + ".");
        line.matchesNames = what == "name";
    };
    apply
        .add_option_function<std::string>(
            "--match", match, "How a plan's entry finds its own: by name, or by Id\n(where left out)")
        ->type_name("name|id");
    AddRehearsal(apply, line);
}

void AddOutlookCommands(CLI::App& app, CommandLine& line) {
    auto& runs = AddCommand(app, "runs", "Tells what will run and when, in order of time");
    AddText(runs, "--from", line.from,
            "The first day, YYYY-MM-DD, or moment, YYYY-MM-DDTHH:MM\n(after now where left out)")
        ->type_name("DATE");
    AddText(runs, "--to", line.to, "The last day or moment, included")->type_name("DATE");
    AddNumber(runs, "--count", line.count, "At most so many runs (10 where left out without --to)");
    AddExamples(runs, "  nolsched runs 12 --count 3\n  nolsched runs --from 2026-03-05 --to 2026-03-06");
    auto& check = AddCommand(app, "check", "Names what never runs, has ended, clashes or lacks a group");
    auto& calendar = AddCommand(app, "export", "Writes the runs as a calendar (iCalendar)");
    for (auto* command : {&runs, &check, &calendar}) AddChoice(*command, line);
    auto& holidays = AddCommand(app, "holidays", "Lists, adds, deletes and imports holidays");
    holidays.require_subcommand(0, 1);
    auto& add = AddCommand(holidays, "add", "Adds a holiday");
    auto& remove = AddCommand(holidays, "delete", "Deletes a holiday");
    for (auto* command : {&add, &remove})
        command->add_option("DATE", line.day, "YYYY-MM-DD")->required()->type_name("");
    add.add_option("NAME", line.document, "The holiday's name")->required()->type_name("");
    AddCommand(holidays, "import",
               "Adds the whole days of a calendar file's events, of\nrules until 2099; a day that is one "
               "already keeps\nits name")
        .add_option("FILE", line.file, "An iCalendar file (.ics)")
        ->required()
        ->type_name("");
}

void AddDocumentCommands(CLI::App& app, CommandLine& line) {
    auto& documents = AddCommand(app, "documents", "Lists, adds and deletes groups and scenarios");
    documents.require_subcommand(0, 1);
    auto& add = AddCommand(documents, "add", "Adds a document");
    auto& remove = AddCommand(documents, "delete", "Deletes a document");
    remove.add_flag("--force", line.isForced, "Also one that entries use");
    for (auto* command : {&add, &remove}) {
        command->add_option("TYPE", line.type, "group or scenario")->required()->type_name("");
        command->add_option("NAME", line.document, "The document's name")->required()->type_name("");
    }
    AddCommand(app, "init", "Makes the store")
        .add_flag("--samples", line.hasSamples,
                  "With sample groups and scenarios, as new, apply and\ndocuments add make it");
}

void AddOtherCommands(CLI::App& app, CommandLine& line) {
    auto& fields = AddCommand(app, "fields", "Tells the fields, what they offer and when they are there");
    AddText(fields, "TAB", line.tab, "general, schedule, hom, plm, rfc or vcsa\n(all where left out)")
        ->type_name("");
    AddCommand(app, "watch", "Tells of each entry saved or deleted, until it is stopped");
    auto& help = AddCommand(app, "help", "Tells this, or what a command takes: help set");
    help.add_option("COMMAND", line.topic, "Of this command; \"documents add\" is one, too")->type_name("");
    help.add_flag("--man", line.asksForManual, "Tells all as a man page");
    help.add_flag("--bash", line.asksForCompletion,
                  "Tells what completes its lines in bash:\n. <(nolsched help --bash)");
}

void AddCommands(CLI::App& app, CommandLine& line) {
    using AddGroup = void (*)(CLI::App&, CommandLine&);
    static constexpr std::pair<const char*, AddGroup> groups[] = {
        {"Entries", AddEntryCommands},
        {"Entries", AddPlanCommands},
        {"What will run", AddOutlookCommands},
        {"Documents and stores", AddDocumentCommands},
        {"Other", AddOtherCommands}};
    for (const auto& [name, add] : groups) {
        app.group(name);  // a command is of the group that is the host's when it comes
        add(app, line);
    }
}

// "help documents add" is "documents add --help".
std::string HelpOf(const CLI::App& app, const CommandLine& line) {
    if (line.asksForManual) return ManualOf(app);
    if (line.asksForCompletion) return CompletionOf(app);
    auto topic = line.topic;
    topic.emplace_back("--help");
    return ReadCommandLine(topic, [] {}).answer;
}

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& given, const std::function<void()>& useJson) {
    CommandLine line;
    const auto app = MakeApp("nolsched", "nolsched edits schedule entries by words and scripts.", line);
    app->add_flag("--json")->description("Says everything as one object a line");
    app->require_subcommand(1);
    AddCommands(*app, line);
    app->footer(footer);
    if (GivesOption(*app, given, "--json")) useJson();
    ReadArguments(*app, given, line);
    if (line.command == "help" && line.answer.empty()) line.answer = HelpOf(*app, line);
    return line;
}

}  // namespace NolSchedCtls
