#include "host/cli/line_reader.h"

#include <cerrno>
#include <cstring>
#include <istream>
#include <ostream>

#include "host/entries/arguments.h"

namespace NolSchedCtls {

std::optional<std::string> StreamReader::Read(const std::string& prompt) {
    if (prompts != nullptr) *prompts << prompt << std::flush;
    std::string line;
    if (std::getline(lines, line)) {
        if (line.ends_with('\r')) line.pop_back();
        return line;
    }
    if (lines.bad())
        throw UsageError("The script cannot be read: " + std::string(std::strerror(errno)) + ".");
    lines.clear();  // a terminal goes on after Ctrl+D
    if (prompts != nullptr) *prompts << std::endl;
    return {};
}

}  // namespace NolSchedCtls
