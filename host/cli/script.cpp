#include "host/cli/script.h"

#include "NolSchedCtls/base/text.h"
#include "host/cli/field_rules.h"
#include "host/cli/field_view.h"
#include "host/entries/entry_check.h"

namespace NolSchedCtls {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view blanks = " \t";

// The word at the front, taken off together with one blank after it: what follows is text as it stands.
std::string_view TakeWord(std::string_view& line) {
    const std::size_t end = std::min(line.find_first_of(blanks), line.size());
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

std::string_view WithoutLeadingBlanks(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
    return line;
}

bool IsEmptyOrComment(std::string_view line) {
    line = WithoutLeadingBlanks(line);
    return line.empty() || line.starts_with('#');
}

void RefuseRest(std::string_view verb, std::string_view rest) {
    if (!IsEmptyOrComment(rest))
        throw UsageError(std::string(verb) + " takes no text, but " + Quoted(Trimmed(rest, blanks)) +
                         " stands after it.");
}

// What stands between quotes, as \" and \\ within them mean it; the line goes on behind.
std::string TakeQuoted(std::string_view& line) {
    std::string text;
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == '"') {
            line.remove_prefix(i + 1);
            return text;
        }
        const bool isMeant =
            line[i] == '\\' && i + 1 < line.size() && (line[i + 1] == '"' || line[i + 1] == '\\');
        text += line[isMeant ? ++i : i];
    }
    throw UsageError("The quotes of " + std::string(line) + " are not closed.");
}

// Up to a comment, which blanks go before, without blanks at the ends; or as it is quoted.
std::string TextOf(std::string_view rest) {
    rest = Trimmed(rest, blanks);
    if (rest.starts_with('"')) {
        std::string text = TakeQuoted(rest);
        if (!IsEmptyOrComment(rest))
            throw UsageError(Quoted(Trimmed(rest, blanks)) + " stands after the closing quotes.");
        return text;
    }
    for (std::size_t i = 0; i < rest.size(); ++i)
        if (rest[i] == '#' && (i == 0 || blanks.find(rest[i - 1]) != std::string_view::npos))
            return std::string(Trimmed(rest.substr(0, i), blanks));
    return std::string(rest);
}

}  // namespace

const Page& PageNamed(const EntrySession& session, std::string_view name) {
    for (const Page& page : session.Pages())
        if (page.name == name) return page;
    throw UsageError("There is no tab " + Quoted(name) + "; there are " +
                     Joined(session.Pages(), &Page::name) + ".");
}

std::string ScriptText(const std::string& text) {
    if (!text.starts_with('"') && TextOf(text) == text && !text.empty()) return text;
    std::string quoted = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\') quoted += '\\';
        quoted += letter;
    }
    return quoted + '"';
}

Script::Script(Workspace& workspaceA, EntrySession& sessionA, Answers& answersA)
    : workspace(workspaceA), session(sessionA), answers(answersA) {
    connections.emplace_back(session.Notifier().TabShown.Connect([this](const std::string& tabName) {
        const Page* page = session.FindPage(tabName);
        answers.Tell({{"shown", page == nullptr ? tabName : std::string(page->name)}});
    }));
    for (const Page& page : session.Pages())
        connections.emplace_back(page.tab->Beep.Connect([this](const ViewField& field) {
            answers.Tell({{"beep", field.Name()}});
        }));
}

int Script::Run(std::istream& lines, const std::string& file, Unsaved unsaved) {
    StreamReader reader(lines);
    for (int number = 1; auto line = reader.Read(""); ++number) {
        if (number == 1 && line->starts_with(byteOrderMark)) line->erase(0, byteOrderMark.size());
        try {
            Line(*line);
        } catch (const UsageError& error) {
            throw At(error, file, number);
        }
    }
    if (verdict != exitDone || unsaved == Unsaved::Discard || !HasUnsaved()) return verdict;
    answers.Tell(JsonOf(At(
        UsageError("the script ends with changes that no save has stored; --discard drops them."), file, 0)));
    return exitRefused;
}

UsageError Script::At(UsageError error, const std::string& file, int line) {
    const CNolSchedData& record = session.Record();
    error.place = {file, line, record.Id, record.EditorName};
    return error;
}

void Script::Line(std::string_view line) {
    constexpr std::pair<std::string_view, void (Script::*)()> questions[] = {
        {"record", &Script::ShowRecord},
        {"changed", &Script::ShowChanged},
        {"valid", &Script::Valid},
        {"save", &Script::Save}};
    if (IsEmptyOrComment(line)) return;
    line = WithoutLeadingBlanks(line);
    const std::string_view verb = TakeWord(line);
    if (const auto act = VerbNamed(verb)) return Act(*act, verb, line);
    if (verb == "look") return Look(line);
    if (verb == "runs") return TellRuns(line);
    for (const auto& [question, answer] : questions) {
        if (question != verb) continue;
        RefuseRest(verb, line);
        return (this->*answer)();
    }
    throw UsageError(
        "There is no command " + Quoted(verb) +
        "; there are click, pick, type, paste, date, time, look, runs, record, changed, valid and save.");
}

void Script::Act(Verb act, std::string_view verb, std::string_view rest) {
    rest = WithoutLeadingBlanks(rest);
    const std::string_view target = TakeWord(rest);
    const std::size_t dot = target.find('.');
    if (dot == std::string_view::npos)
        throw UsageError(std::string(verb) + " takes a field as TAB.FIELD, not " + Quoted(target) + ".");
    const Target found = TargetNamed(target);
    if (act == Verb::Click) RefuseRest(verb, rest);
    if (act == Verb::Pick && IsEmptyOrComment(rest))
        throw UsageError(
            "pick lacks its text; \"\" clears a document, and a text that begins with # is quoted.");
    DoAct(act, found, TextOf(rest));
}

Target Script::TargetNamed(std::string_view name) {
    const std::size_t dot = name.find('.');
    const Page& page = PageNamed(session, name.substr(0, dot));
    ViewField* const field = page.tab->FindField(name.substr(dot + 1));
    if (field == nullptr)
        throw UsageError("The tab " + std::string(page.name) + " has no field " +
                         Quoted(name.substr(dot + 1)) + "; it has " +
                         Joined(page.tab->Fields(), [](const ViewField* known) { return known->Name(); }) +
                         ".");
    return {std::string(name), *field, [this, &page, field] {
                return FieldRules(workspace, page.name).Obstacle(*page.tab, field->Name());
            }};
}

void Script::Look(std::string_view rest) {
    std::string_view name;
    bool isAll = answers.IsJson();
    for (rest = WithoutLeadingBlanks(rest); !IsEmptyOrComment(rest); rest = WithoutLeadingBlanks(rest)) {
        const std::string_view word = TakeWord(rest);
        if (word == "--all")
            isAll = true;
        else if (name.empty())
            name = word;
        else
            RefuseRest("look " + std::string(name), word);
    }
    const bool isOneField = name.find('.') != std::string_view::npos;
    const auto look = [&](const Page& page) {
        Json fields = Json::array();
        for (const ViewField* field : page.tab->Fields())
            if (isOneField ? field == &TargetNamed(name).field : isAll || IsForActs(*field))
                fields.push_back(Describe(*field, isAll));
        answers.Tell({{"look", page.name}, {"fields", fields}});
    };
    if (!name.empty()) return look(PageNamed(session, name.substr(0, name.find('.'))));
    for (const Page& page : session.Pages()) look(page);
}

// Without runs, the state and its reason in the form of the command check.
void Script::TellRuns(std::string_view rest) {
    int count = 10;
    rest = WithoutLeadingBlanks(rest);
    if (!IsEmptyOrComment(rest)) {
        const std::string_view given = TakeWord(rest);
        count = ParseWhole(given).value_or(0);
        if (count < 1) throw UsageError("runs takes a number from 1 on, not " + Quoted(given) + ".");
        RefuseRest("runs " + std::string(given), rest);
    }
    const auto record = session.ViewedRecord();
    const EntryOutlook outlook(workspace);
    const Schedule schedule = outlook.ScheduleOf(*record);
    auto next = schedule.NextAfter(outlook.Now());
    if (!next) {
        const EntryState state = outlook.StateOf(schedule);
        return answers.Tell(
            {{"check", JsonOf(CheckedEntry{record->Id, record->EditorName, state.text, state.reason})}});
    }
    for (; next && count > 0; --count, next = schedule.NextAfter(*next))
        answers.Tell(
            {{"run", {{"Id", record->Id}, {"EditorName", record->EditorName}, {"at", IsoText(*next)}}}});
}

void Script::ShowRecord() { answers.Tell(JsonOf(session.Record())); }
void Script::ShowChanged() { answers.Tell({{"changed", session.Changes()}}); }

// After a save that failed, the next save alone can tell otherwise.
void Script::Judge(ExitStatus judged) {
    if (verdict != exitStore) verdict = judged;
}

void Script::Refuse(const Page& page) {
    const ViewField* const focus = page.tab->FocusedField();
    Judge(exitRefused);
    answers.Tell({{"valid", false},
                  {"tab", page.name},
                  {"focus", focus == nullptr ? Json(nullptr) : Json(focus->Name())}});
}

void Script::Valid() {
    Judge(exitDone);
    if (const Page* refusal = session.FirstRefusal()) return Refuse(*refusal);
    answers.Tell({{"valid", true}});
}

void Script::Save() {
    verdict = exitStore;  // if it throws
    const auto [refusal, isUnchanged] = session.Save();
    verdict = exitDone;
    if (refusal == nullptr) {
        Json saved{{"saved", true}, {"Id", session.Record().Id}};
        if (isUnchanged) saved["unchanged"] = true;
        return answers.Tell(saved);
    }
    Refuse(*refusal);
    answers.Tell({{"saved", false}});
}

}  // namespace NolSchedCtls
