// One call of nolsched, as a user's.
#pragma once

#include <sstream>

#include "host/cli/commands.h"

namespace NolSchedCtls::Testing {

// What it says, and behind it "[status N]" unless that is 0.
inline std::string RunCommandLine(const std::vector<std::string>& arguments, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream told;
    Terminal terminal{in, told, told, false, "tester"};
    const int status = RunNolsched(arguments, terminal);
    return told.str() + (status == 0 ? "" : "[status " + std::to_string(status) + "]\n");
}

}  // namespace NolSchedCtls::Testing
