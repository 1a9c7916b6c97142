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
};

// The entries that the line names, in its order; all of them by Id, page by page, where it names none. Throws
// RequestError for one that is not there, before any is visited.
void ForEachChosen(const CommandRun& run, const std::function<void(const ListedEntry&)>& visit);

}  // namespace NolSchedCtls
