#include "host/cli/command_line.h"

#include <CLI/CLI.hpp>

#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls {

namespace {

constexpr const char* scriptHelp =
    "A file, or - for standard input (also where left out); see nolsched --help";

constexpr const char* footer =
    "nolsched COMMAND --help tells what a command takes.\n"
    "A SCRIPT has one command a line, # begins a comment:\n"
    "  click TAB.FIELD          type TAB.FIELD TEXT     valid        runs [N]\n"
    "  pick TAB.FIELD TEXT      paste TAB.FIELD TEXT    save         record\n"
    "  date TAB.FIELD DATE      time TAB.FIELD HH:MM    changed\n"
    "  look [TAB[.FIELD]] [--all]    the fields as they stand; all: labels, frames and places, too\n"
    "nolsched fields tells which fields there are, what they offer and when they are there.\n"
    "Exit status: 0 done, 1 refused by a tab or found by check, 2 a wrong command or script line,\n"
    "3 the store or the output failed. Of a text, a control stands as \\n or \\u009b, a backslash as \\\\.";

CLI::App& AddCommand(CLI::App& app, const std::string& name, const std::string& description) {
    return *app.add_subcommand(name, description)->group("Commands")->footer("");
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

void AddEntryCommands(CLI::App& app, CommandLine& line) {
    AddCommand(app, "list", "Lists every entry");
    auto& show = AddCommand(app, "show", "Shows an entry's fields, then its override rows");
    auto& make = AddCommand(app, "new", "Makes an entry and runs a script on it");
    make.add_flag("--immediate", line.isImmediate, "Runs at once, without a schedule");
    AddText(make, "--name", line.name, "The entry's name")->type_name("NAME");
    AddText(make, "--group", line.group, "The study group to run")->type_name("GROUP");
    auto& edit = AddCommand(app, "edit", "Runs a script on a stored entry");
    auto& duplicate = AddCommand(app, "duplicate", "Saves a copy of an entry under a new id");
    auto& remove = AddCommand(app, "delete", "Deletes an entry");
    AddCommand(app, "watch", "Tells of each entry that anyone saves or deletes, until it is stopped");
    AddText(
        AddCommand(app, "fields", "Tells the fields of the tabs, what they offer and when they are there"),
        "TAB", line.tab, "general, schedule, hom, plm, rfc or vcsa (all where left out)")
        ->type_name("");
    for (auto* command : {&show, &edit, &duplicate, &remove})
        AddId(*command, line.id, "The entry's id")->required();
    for (auto* command : {&make, &edit})
        command->add_option("SCRIPT", line.script, scriptHelp)->type_name("");
}

void AddOutlookCommands(CLI::App& app, CommandLine& line) {
    auto& runs = AddCommand(app, "runs", "Tells what will run and when, in order of time");
    AddText(runs, "--from", line.from,
            "The first day, YYYY-MM-DD, or moment, YYYY-MM-DDTHH:MM (after now where left out)")
        ->type_name("DATE");
    AddText(runs, "--to", line.to, "The last day or moment, included")->type_name("DATE");
    AddNumber(runs, "--count", line.count, "At most so many runs (10 where left out without --to)");
    AddCommand(app, "check", "Names entries that never run, have ended, lack their group or clash");
    auto& calendar = AddCommand(app, "export", "Writes the runs as a calendar (iCalendar)");
    for (auto* command : {&runs, &calendar}) AddIds(*command, line.ids);
    auto& holidays = AddCommand(app, "holidays", "Lists, adds, deletes and imports holidays");
    holidays.require_subcommand(0, 1);
    auto& add = AddCommand(holidays, "add", "Adds a holiday");
    auto& remove = AddCommand(holidays, "delete", "Deletes a holiday");
    for (auto* command : {&add, &remove})
        command->add_option("DATE", line.day, "YYYY-MM-DD")->required()->type_name("");
    add.add_option("NAME", line.document, "The holiday's name")->required()->type_name("");
    AddCommand(holidays, "import",
               "Adds the whole days of a calendar file's events, of rules until 2099;\na day that is one "
               "already keeps its name")
        .add_option("FILE", line.file, "An iCalendar file (.ics)")
        ->required()
        ->type_name("");
}

void AddDocumentCommands(CLI::App& app, CommandLine& line) {
    auto& documents = AddCommand(app, "documents", "Lists, adds and deletes groups and scenarios");
    documents.require_subcommand(0, 1);
    for (auto* command : {&AddCommand(documents, "add", "Adds a document"),
                          &AddCommand(documents, "delete", "Deletes a document")}) {
        command->add_option("TYPE", line.type, "group or scenario")->required()->type_name("");
        command->add_option("NAME", line.document, "The document's name")->required()->type_name("");
    }
}

}  // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& given, const std::function<void()>& useJson) {
    CommandLine line;
    const auto app = MakeApp("nolsched", "nolsched edits schedule entries by scripts.", line);
    app->add_flag("--json")->description("Says everything as one object a line");
    app->require_subcommand(1);
    AddEntryCommands(*app, line);
    AddOutlookCommands(*app, line);
    AddDocumentCommands(*app, line);
    app->footer(footer);
    if (GivesOption(*app, given, "--json")) useJson();
    ReadArguments(*app, given, line);
    return line;
}

}  // namespace NolSchedCtls
