#include "host/cli/prompt.h"

#include <array>
#include <ostream>

#include "NolSchedCtls/base/text.h"
#include "host/cli/field_view.h"
#include "host/entries/visible_text.h"

namespace NolSchedCtls {

namespace {

struct Command {
    std::string_view verb;
    std::string_view takes;
    std::string_view told;
};

constexpr std::string_view look = "look";

constexpr auto commands = std::to_array<Command>({
    {"click", "TAB.FIELD", "clicks a check box; turns automatic purge on or off"},
    {"pick", "TAB.FIELD TEXT",
     "picks what a list, a picker or the download mode offers; \"\" clears a picker"},
    {"type", "TAB.FIELD TEXT", "types keys into an emptied text box"},
    {"paste", "TAB.FIELD TEXT", "replaces the text of a text box"},
    {"date", "TAB.FIELD DATE", "sets a date, as 2026-12-24, 12/24/2026 or 24 Dec 2026"},
    {"time", "TAB.FIELD TIME", "sets a time, as 22:30, 10:30 PM or 7"},
    {look, "[TAB[.FIELD]] [--all]", "shows the fields; all: labels, frames and places, too"},
    {"runs", "[N]", "tells the next runs of what the fields show"},
    {"record", "", "tells the record as it stands in memory"},
    {"changed", "", "tells how often the fields have changed"},
    {"valid", "", "asks every tab whether it can be saved"},
    {"save", "", "saves the entry, if it is valid"},
    {"help", "", "tells this"},
    {"quit", "", "leaves; asks first while changes are not saved"},
});

using Texts = std::vector<std::string>;

// Those that begin like that. A name that could command the terminal is not for a line.
Completion Fitting(std::string_view typed, std::size_t from, const Texts& words) {
    Completion fitting{from};
    for (const std::string& word : words)
        if (word.starts_with(typed.substr(from)) && WithoutControls(word) == word)
            fitting.words.push_back(word);
    return fitting;
}

Texts Verbs() {
    Texts verbs;
    for (const Command& command : commands)
        verbs.push_back(std::string(command.verb) + (command.takes.empty() ? "" : " "));
    return verbs;
}

// "schedule." while no tab is typed in full, else "schedule.cboPeriod " with what the verb can act on.
Texts Places(const EntrySession& session, std::string_view verb, std::string_view typed) {
    const auto act = VerbNamed(verb);
    const Page* const page = session.FindPage(typed.substr(0, typed.find('.')));
    Texts places;
    if (page == nullptr || typed.find('.') == std::string_view::npos) {
        for (const Page& known : session.Pages()) places.push_back(std::string(known.name) + '.');
        return places;
    }
    for (const ViewField* field : page->tab->Fields())
        if (act ? field->IsUsable() && IsKnown(*act, *field) : IsForActs(*field))
            places.push_back(std::string(page->name) + '.' + field->Name() + (act == Verb::Click ? "" : " "));
    return places;
}

// Bounds of a date or time are nothing to begin a text with.
Texts Offers(const EntrySession& session, std::string_view verb, std::string_view place) {
    const std::size_t dot = std::min(place.find('.'), place.size());
    const Page* const page = session.FindPage(place.substr(0, dot));
    const ViewField* const field =
        page == nullptr ? nullptr : page->tab->FindField(place.substr(std::min(dot + 1, place.size())));
    const auto act = VerbNamed(verb);
    if (field == nullptr || !act || *act == Verb::Date || *act == Verb::Time) return {};
    if (!field->IsUsable() || !IsKnown(*act, *field)) return {};
    Texts offers = OfferedBy(*field);
    std::ranges::transform(offers, offers.begin(), ScriptText);
    return offers;
}

std::string PromptText(EntrySession& session) {
    const CNolSchedData& record = session.Record();
    return "nolsched " + (record.IsNew ? "new" : std::to_string(record.Id)) +
           (record.IsNew || session.HasUnsavedChanges() ? "*> " : "> ");
}

void TellHelp(Answers& answers) {
    for (const auto& [verb, takes, told] : commands)
        answers.Tell({{"command", {{"verb", verb}, {"takes", takes}, {"text", told}}}});
}

void DoLine(Script& script, Answers& answers, const std::string& line) {
    try {
        Trimmed(line) == "help" ? TellHelp(answers) : script.Line(line);
    } catch (const UsageError& error) {
        answers.Tell(JsonOf(error));
    } catch (const NolSchedError& error) {
        answers.TellFailure(error);
    }
}

// How to end; nothing where a person has thought better of it.
std::optional<int> Leave(const CommandRun& run, const Script& script, LineReader& lines) {
    if (run.line.discards || !script.HasUnsaved()) return script.Verdict();
    const auto answer = lines.Read("There are changes that no save has stored. Leave? [y/N] ");
    if (!answer) {
        run.answers.Tell(JsonOf(UsageError("the input ends with changes that no save has stored.")));
        return std::max<int>(script.Verdict(), exitRefused);
    }
    const std::string_view said = Trimmed(*answer);
    if (said.starts_with('y') || said.starts_with('Y')) return script.Verdict();
    return {};
}

std::unique_ptr<LineReader> LinesOf(const CommandRun& run, const EntrySession& session) {
    std::unique_ptr<LineReader> lines;
    if (run.terminal.makeEditor)
        lines = run.terminal.makeEditor([&](std::string_view typed) { return CompletionOf(session, typed); });
    if (!lines) lines = std::make_unique<StreamReader>(run.terminal.in, &run.terminal.err);
    return lines;
}

}  // namespace

Completion CompletionOf(const EntrySession& session, std::string_view typed) {
    constexpr std::string_view blanks = " \t";
    const auto endOfWord = [&](std::size_t from) {
        return std::min(typed.find_first_of(blanks, from), typed.size());
    };
    const auto startOfWord = [&](std::size_t from) {
        return std::min(typed.find_first_not_of(blanks, from), typed.size());
    };
    const std::size_t verbAt = startOfWord(0), verbEnd = endOfWord(verbAt);
    if (verbEnd == typed.size()) return Fitting(typed, verbAt, Verbs());
    const std::string_view verb = typed.substr(verbAt, verbEnd - verbAt);
    const std::size_t placeAt = startOfWord(verbEnd), placeEnd = endOfWord(placeAt);
    if (verb != look && !VerbNamed(verb)) return {};
    const std::string_view place = typed.substr(placeAt, placeEnd - placeAt);
    if (placeEnd == typed.size()) return Fitting(typed, placeAt, Places(session, verb, place));
    return Fitting(typed, placeEnd + 1, Offers(session, verb, place));
}

int RunPrompt(const CommandRun& run, EntrySession& session, Script& script) {
    const auto lines = LinesOf(run, session);
    const auto isInterrupted = [&run] { return run.terminal.isInterrupted && run.terminal.isInterrupted(); };
    run.workspace.Store().onWait = [isInterrupted](std::chrono::milliseconds waited) {
        return !isInterrupted() && waited < Database::patience;
    };
    isInterrupted();  // from now on Ctrl+C does not end the process
    while (true) {
        const auto line = lines->Read(PromptText(session));
        const bool isDropped = isInterrupted();  // what came until now was for the line
        if (!line && isDropped) continue;
        if (line && Trimmed(*line) != "quit") {
            lines->Remember(*line);
            DoLine(script, run.answers, *line);
        } else if (const auto status = Leave(run, script, *lines)) {
            return *status;
        }
    }
}

}  // namespace NolSchedCtls
