// The commands that set entries by words: one by one, many at once, from a file.
#pragma once

#include "host/cli/command_run.h"
#include "host/entries/entry_session.h"

namespace NolSchedCtls {

// Throws RefusedError for what a tab refuses; gives whether the store held it all already.
bool SaveOrRefuse(EntrySession& session);

int Set(const CommandRun& run);
// The command new with words.
int NewByWords(const CommandRun& run);
int Dump(const CommandRun& run);
int Apply(const CommandRun& run);

}  // namespace NolSchedCtls
