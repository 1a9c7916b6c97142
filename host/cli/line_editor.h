// The editing of lines by a person at a terminal: keys that move, a history, completion.
#pragma once

#include <memory>

#include "host/cli/line_reader.h"

namespace NolSchedCtls {

// On the terminal of standard input, shown where standard error, standard output or else standard input is a
// terminal. Tab completes the line; a SIGINT that is caught drops it. Letters are UTF-8, whatever the locale.
// Nothing where there is no such terminal, one that knows no cursor (TERM=dumb), or no library that edits.
std::unique_ptr<LineReader> MakeLineEditor(Complete complete);

}  // namespace NolSchedCtls
