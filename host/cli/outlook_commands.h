// The commands about what will run: each carries out the line and gives the exit status.
#pragma once

#include "host/cli/command_run.h"

namespace NolSchedCtls {

int TellRuns(const CommandRun& run);
int Check(const CommandRun& run);
int Export(const CommandRun& run);
int TellHolidays(const CommandRun& run);
int AddHoliday(const CommandRun& run);
int DeleteHoliday(const CommandRun& run);
int ImportHolidays(const CommandRun& run);

}  // namespace NolSchedCtls
