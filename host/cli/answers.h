// What `nolsched` says: one object for each thing that happens, written as JSON or as text.
#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/services/lintel.h"

namespace NolSchedCtls {

struct CheckedEntry;
class UsageError;

// Keys keep the order in which they were put in.
using Json = nlohmann::ordered_json;

class Answers {
  public:
    // A row of a list ends at the width, in columns of a terminal; 0: no row is cut.
    Answers(std::ostream& outA, std::ostream& errA, std::size_t widthA = 0)
        : out(outA), err(errA), width(widthA) {}

    // One object a line: errors and failures to the error stream, all else to the output in the order in
    // which it happens. Else text, with messages to the error stream, too.
    void UseJson() { isJson = true; }
    // Whether an answer is to hold what no text tells.
    bool IsJson() const { return isJson; }

    // The first key tells the kind of answer. Throws OutputError.
    void Tell(const Json& answer);
    // A row of a list as text, ended at the width. Rows, and the JSON of entries, may wait in the stream for
    // what is told next, or for the end of the rows. Both throw OutputError.
    struct Cell {
        std::string_view text;
        std::size_t columns;
    };
    void TellRow(std::span<const Cell> cells);
    void EndRows();
    // Tells what the store, or something else, failed in.
    void TellFailure(const std::exception& failure);
    // The name under which failures of the store are told.
    void UseStore(std::string name) { store = std::move(name); }

    // Nothing can be told any more.
    bool IsLost() const;

  private:
    std::ostream& out;
    std::ostream& err;
    std::size_t width;
    bool isJson = false;
    std::string store;
};

// In one line; bytes that are no UTF-8 become replacement characters.
std::string Dumped(const Json& value);
// Null for no value.
Json JsonOf(const LintelValue& value);
// {"error": {...}}, with what is known of place and field.
Json JsonOf(const UsageError& error);
Json JsonOf(const CheckedEntry& entry);
// Its stored properties under their names, in the order of their columns.
Json PropertiesOf(const CNolSchedData& record);
// {"record": ...} with all properties, then {"overrides": [...]} in order of addition, each as its row.
Json JsonOf(const CNolSchedData& record);

}  // namespace NolSchedCtls
