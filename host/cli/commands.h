// `nolsched`: the scripted host as one call, so that a test runs what a user runs.
#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "host/cli/line_reader.h"

namespace NolSchedCtls {

struct Terminal {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool isInteractive = false;  // `in` is a terminal: prompt for a script
    std::string user = {};       // who saves; empty: the user that the process runs for
    // Waits between two looks; false when a command that goes on until it is stopped is to end.
    std::function<bool(std::chrono::milliseconds)> pause = {};
    std::size_t width = 0;  // columns of `out`, where it is a terminal: rows of a list end there; 0: nowhere
    // Of a prompt's lines; empty, or giving nothing: they are read from `in`, and prompts go to `err`.
    std::function<std::unique_ptr<LineReader>(Complete)> makeEditor = {};
    // Whether the person has asked, since it was last called, to give up what goes on. May be empty.
    std::function<bool()> isInterrupted = {};
};

// The arguments after the program's name. Needs a QCoreApplication. Gives the exit status.
int RunNolsched(const std::vector<std::string>& arguments, Terminal& terminal);

}  // namespace NolSchedCtls
