// A script: one user act or question a line, carried out on an open entry.
#pragma once

#include <iosfwd>

#include "host/cli/acts.h"
#include "host/cli/answers.h"
#include "host/entries/entry_session.h"

namespace NolSchedCtls {

// The exit statuses of `nolsched`.
enum ExitStatus { exitDone = 0, exitRefused = 1, exitUsage = 2, exitStore = 3 };

class Script {
  public:
    // Connects the session's notifier and tabs to the answers; load the session behind it.
    Script(EntrySession& sessionA, Answers& answersA);

    // Runs to the end of the lines. Raises UsageError, with the line's number, for the first line that a user
    // could not carry out, and what a save raises. At a terminal a wrong line is told and the next is asked
    // for. Gives the verdict of the last `valid` or `save`: exitDone or exitRefused.
    int Run(std::istream& lines, std::ostream* prompt);

  private:
    struct Question;
    static const Question questions[5];

    void Line(std::string_view line);
    void Act(Verb act, std::string_view verb, std::string_view rest);
    void Look(std::string_view rest);
    void ShowRecord(std::string_view rest);
    void ShowChanged(std::string_view rest);
    void Valid(std::string_view rest);
    void Save(std::string_view rest);
    void LookAt(const Page& page);
    const Page& PageNamed(std::string_view name) const;
    void TellRefusal(const Page& page);

    EntrySession& session;
    Answers& answers;
    int status = exitDone;
    std::vector<ScopedConnection> connections;
};

}  // namespace NolSchedCtls
