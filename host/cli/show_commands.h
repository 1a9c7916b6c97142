// The commands that show entries.
#pragma once

#include "host/cli/command_run.h"

namespace NolSchedCtls {

int List(const CommandRun& run);
int Show(const CommandRun& run);

}  // namespace NolSchedCtls
