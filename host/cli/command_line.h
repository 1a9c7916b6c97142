// The command line of `nolsched`.
#pragma once

#include "host/entries/arguments.h"

namespace NolSchedCtls {

// Which entries: those to which all that is given applies.
struct Filter {
    bool isAll = false;
    std::optional<std::string> name;  // with * and ?
    std::optional<std::string> group;
    std::optional<std::string> state;

    bool IsGiven() const { return isAll || name || group || state; }
};

// What the command takes has a value; what it may lack has one where it was given.
struct CommandLine : HostArguments {
    std::optional<std::int32_t> id;
    std::vector<std::int32_t> ids;  // those that the line names one by one
    Filter filter;                  // of them, or of all
    std::vector<std::string> words;
    std::vector<std::string> topic;     // a command that help tells of
    std::optional<std::string> script;  // a file; "-" for standard input
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
    bool discards = false;
    bool hasSamples = false;
    bool isForced = false;
    bool isDryRun = false;
    bool isAgreed = false;  // to a change of what a filter has chosen
    bool matchesNames = false;
    bool asksForManual = false;
    bool asksForCompletion = false;
};

// Throws UsageError; before that, calls useJson if the line asks for it.
CommandLine ReadCommandLine(const std::vector<std::string>& given, const std::function<void()>& useJson);

}  // namespace NolSchedCtls
