// One call of nolsched, as a user's, and the files around it.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/cli/commands.h"

namespace NolSchedCtls::Testing {

// What it says, with "t.db" for the store's address, and after it "[status N]" unless that is 0.
inline std::string RunCommandLine(const std::string& address, std::vector<std::string> arguments,
                                  const std::string& input = {}) {
    arguments.insert(arguments.begin(), {"--db", address, "--now", "2026-03-02T09:05"});
    std::istringstream in(input);
    std::ostringstream told;
    Terminal terminal{in, told, told, false, "tester"};
    const int status = RunNolsched(arguments, terminal);
    std::string text = told.str() + (status == 0 ? "" : "[status " + std::to_string(status) + "]\n");
    for (std::size_t at = 0; !address.empty() && (at = text.find(address, at)) != std::string::npos;)
        text.replace(at, address.size(), "t.db");
    return text;
}

inline std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace NolSchedCtls::Testing
