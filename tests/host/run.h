// One call of nolsched, as a user's, and the files around it.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/cli/commands.h"

namespace NolSchedCtls::Testing {

// Both streams in one text, the lines of the second marked: "! error: ...".
class Stream : public std::streambuf {
  public:
    Stream(std::string& toldA, const char* markA) : told(toldA), mark(markA) {}

  protected:
    int overflow(int letter) override {
        if (told.empty() || told.back() == '\n') told += mark;
        told += static_cast<char>(letter);
        return letter;
    }

  private:
    std::string& told;
    const char* mark;
};

// What it says, with "t.db" for the store's address, and after it "[status N]" unless that is 0. No time: the
// system's clock, and its user. Dates are not those of the machine's region. Input of new and edit is their
// script.
inline std::string RunCommandLine(const std::string& address, std::vector<std::string> arguments,
                                  const std::string& input = {}, bool isInteractive = false,
                                  std::function<bool(std::chrono::milliseconds)> pause = {},
                                  const char* now = "2026-03-02T09:05") {
    const bool isEdited = !arguments.empty() && (arguments.front() == "new" || arguments.front() == "edit");
    if (isEdited && !input.empty() && !isInteractive && arguments.back() != "-") arguments.emplace_back("-");
    arguments.insert(arguments.begin(), {"--db", address, "--region", "us"});
    if (*now != '\0') arguments.insert(arguments.begin(), {"--now", now});
    std::string text;
    Stream first(text, ""), second(text, "! ");
    std::istringstream in(input);
    std::ostream out(&first), err(&second);
    const std::size_t width = isInteractive ? 60 : 0;
    Terminal terminal{in, out, err, isInteractive, *now == '\0' ? "" : "tester", std::move(pause), width};
    const int status = RunNolsched(arguments, terminal);
    if (status != 0) text += "[status " + std::to_string(status) + "]\n";
    for (std::size_t at = 0; !address.empty() && (at = text.find(address, at)) != std::string::npos;)
        text.replace(at, address.size(), "t.db");
    return text;
}

inline std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace NolSchedCtls::Testing
