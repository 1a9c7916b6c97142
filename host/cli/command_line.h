// The command line of `nolsched`.
#pragma once

#include "host/entries/arguments.h"

namespace NolSchedCtls {

// What the command takes has a value; what it may lack has one where it was given.
struct CommandLine : HostArguments {
    std::optional<std::int32_t> id;
    std::vector<std::int32_t> ids;
    std::string script = "-";
    std::optional<std::string> name;
    std::optional<std::string> group;
    std::string type;
    std::string document;  // or a holiday's name
    std::string day;
    std::string file;
    std::optional<std::string> tab;
    std::optional<std::string> from;
    std::optional<std::string> to;
    std::optional<int> count;
    bool isImmediate = false;
};

// Throws UsageError; before that, calls useJson if the line asks for it.
CommandLine ReadCommandLine(const std::vector<std::string>& given, const std::function<void()>& useJson);

}  // namespace NolSchedCtls
