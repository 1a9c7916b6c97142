// The commands that write entries many at once: by words, from a file, as copies.
#pragma once

#include "host/cli/command_run.h"

namespace NolSchedCtls {

int Set(const CommandRun& run);
int Duplicate(const CommandRun& run);
// The command new with words.
int NewByWords(const CommandRun& run);
int Dump(const CommandRun& run);
// Its entries, each as text. Throws UsageError for what is no plan.
Json ReadPlan(const CommandLine& line, Terminal& terminal);
int Apply(const CommandRun& run);

}  // namespace NolSchedCtls
