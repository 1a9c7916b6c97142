// The command line of `nolsched`.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace NolSchedCtls {

struct CommandLine {
    std::map<std::string, std::string, std::less<>> options;  // "--json" stands with an empty text
    std::vector<std::string> words;                           // the command and what stands behind it

    bool Has(std::string_view option) const { return options.contains(option); }
    // The option's text, or the fallback where it was left out.
    std::string Text(std::string_view option, const std::string& fallback) const;
};

// Options may stand anywhere, as "--name TEXT" or "--name=TEXT". Raises UsageError for one that is not known,
// that lacks its text, or that the command does not take; and for a text that is not valid UTF-8.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

extern const char* const usageText;

}  // namespace NolSchedCtls
