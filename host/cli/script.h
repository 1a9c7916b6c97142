// A script: one user act or question a line, carried out on an open entry.
#pragma once

#include "host/cli/acts.h"
#include "host/cli/answers.h"
#include "host/cli/line_reader.h"
#include "host/entries/entry_session.h"
#include "host/entries/process.h"

namespace NolSchedCtls {

// What becomes of changes that are left at the end of a script.
enum class Unsaved { Refuse, Discard };
// Throws UsageError that names the tabs there are.
const Page& PageNamed(const EntrySession& session, std::string_view name);

// The text as a line says it: in quotes where it would read as another one without.
std::string ScriptText(const std::string& text);

class Script {
  public:
    // Connects the session's notifier and tabs to the answers; load the session after it.
    Script(Workspace& workspaceA, EntrySession& sessionA, Answers& answersA);

    // Runs to the end of the lines, which are told to stand in that file. Throws UsageError, with its place,
    // for the first line that a user could not carry out, and for lines that cannot be read; and what a save
    // throws. Gives the verdict, exitRefused for changes that no save has stored unless they are to be
    // discarded.
    int Run(std::istream& lines, const std::string& file, Unsaved unsaved);
    // One line of it. Throws UsageError without a place, and what a save throws.
    void Line(std::string_view line);
    // Saves the entry and answers so, or answers which tab refused and makes the verdict exitRefused. Throws
    // what the session's Save throws.
    void Save();
    // exitDone or exitRefused by the last `valid` or `save`; exitStore after a save that failed.
    int Verdict() const { return verdict; }
    // Whether anything would be lost by leaving now; a new entry is, until its first save.
    bool HasUnsaved() const { return session.Record().IsNew || session.HasUnsavedChanges(); }

  private:
    void Act(Verb act, std::string_view verb, std::string_view rest);
    void Look(std::string_view rest);
    void TellRuns(std::string_view rest);
    void ShowRecord();
    void ShowChanged();
    void Valid();
    // A field as "TAB.FIELD".
    Target TargetNamed(std::string_view name);
    void Judge(ExitStatus judged);
    void Refuse(const Page& page);
    UsageError At(UsageError error, const std::string& file, int line);

    Workspace& workspace;
    EntrySession& session;
    Answers& answers;
    int verdict = exitDone;
    std::vector<ScopedConnection> connections;
};

}  // namespace NolSchedCtls
