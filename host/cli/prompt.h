// The prompt: the commands of a script, typed by a person on an open entry.
#pragma once

#include "host/cli/command_run.h"
#include "host/cli/script.h"

namespace NolSchedCtls {

// What can follow what is typed: a command, a tab, a field that can be used, what the field offers.
Completion CompletionOf(const EntrySession& session, std::string_view typed);

// Until `quit` or the end of the input, which ask first while changes are not saved. A wrong line and a
// failed save are told, and the next line is asked for. Gives the script's verdict; exitRefused at least when
// the input ends at the question. Throws UsageError for input that cannot be read.
int RunPrompt(const CommandRun& run, EntrySession& session, Script& script);

}  // namespace NolSchedCtls
