// What a command works with.
#pragma once

#include "host/cli/answers.h"
#include "host/cli/command_line.h"
#include "host/cli/commands.h"
#include "host/entries/workspace.h"

namespace NolSchedCtls {

struct CommandRun {
    const CommandLine& line;
    Terminal& terminal;
    Answers& answers;
    Workspace& workspace;
    const Json& input;  // what was read before the store was opened
};

// The entries that the line names, in its order; all of them by Id, page by page, where it names none; of
// these what its filter leaves. Throws RequestError for one that is not there, before any is visited.
void ForEachChosen(const CommandRun& run, const std::function<void(const ListedEntry&)>& visit);

using ChosenIds = std::vector<std::int32_t>;
// The same by their ids. Throws UsageError where the line asks for none, RequestError where its filter leaves
// none.
ChosenIds Chosen(const CommandRun& run);
// What a filter has chosen, once the user has agreed to it. Throws UsageError where nobody does.
ChosenIds AgreedTo(const CommandRun& run);

// What a command writes, all or nothing: rolled back at its end unless it was finished, and told only when it
// stands. In a dry run nothing stands.
class Change {
  public:
    explicit Change(const CommandRun& runA);
    // Of chosen entries. Throws RequestError if they are no more those that were agreed to.
    Change(const CommandRun& runA, const ChosenIds& agreed);

    const ChosenIds& Entries() const { return chosen; }
    bool IsDry() const { return run.line.isDryRun; }
    void Tell(Json answer) { told.push_back(std::move(answer)); }
    void Finish();

  private:
    const CommandRun& run;
    Transaction transaction;
    ChosenIds chosen;
    std::vector<Json> told;
};

}  // namespace NolSchedCtls
