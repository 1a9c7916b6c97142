// The command lines of the hosts: what both take, and how a wrong one is refused.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NolSchedCtls/base/date_time.h"
#include "NolSchedCtls/base/error.h"
#include "platform/region.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace NolSchedCtls {

// A line of a script, or a command line, that cannot be carried out.
class UsageError : public NolSchedError {
  public:
    // Of a field that was given something: what it offers.
    struct Refusal {
        std::string field;
        std::string given;
        std::vector<std::string> offers;
    };
    // Where a script stands. No line for its end; no file for one that a person types.
    struct Place {
        std::string file;
        int line = 0;
        std::int32_t id = 0;  // of the entry; 0 for a new one
        std::string name;
    };

    using NolSchedError::NolSchedError;
    UsageError(const std::string& text, Refusal refusalA)
        : NolSchedError(text), refusal(std::move(refusalA)) {}

    std::optional<Refusal> refusal;
    std::optional<Place> place;
};

// What a tab has refused.
class RefusedError : public UsageError {
  public:
    RefusedError(const std::string& text, Place placeA) : UsageError(text) { place = std::move(placeA); }
};

// The name that the word may stand for by a slip.
std::optional<std::string> NearestOf(const std::string& word, const std::vector<std::string>& names);

struct HostArguments {
    std::string address = "nolsched.db";  // NOLSCHED_DB in the environment comes before it
    std::function<DateTime()> now;        // empty for the system's clock
    Region region = RegionOfUser();
    std::string command;  // with the commands above it: "documents add"
    std::string answer;   // to --help or --version: tell it and do nothing else
};

// Takes --db, --now, --region, --help and --version into the arguments, which it refers to from then on.
std::unique_ptr<CLI::App> MakeApp(const std::string& name, const std::string& description,
                                  HostArguments& arguments);
// The place ID.
CLI::Option* AddId(CLI::App& app, std::optional<std::int32_t>& id, const std::string& description);
// Any number of them, each once; where words are taken, too, what holds a "=" is one.
void AddIds(CLI::App& app, std::vector<std::int32_t>& ids, std::vector<std::string>* words = nullptr);

// Whether the option stands among the arguments, and not as the text of another. Never throws: how a wrong
// line is to be refused must be known first.
bool GivesOption(const CLI::App& app, const std::vector<std::string>& given, std::string_view option);

// Options stand as "--name TEXT" or "--name=TEXT"; those of a command after it, the others anywhere. A text
// that begins with "-" stands after its option or after "--". Throws UsageError that names what is not known,
// is too much or lacks its text, and what may be meant; and for an argument that is not valid UTF-8.
void ReadArguments(CLI::App& app, const std::vector<std::string>& given, HostArguments& arguments);

}  // namespace NolSchedCtls
