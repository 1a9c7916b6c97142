// What `nolsched` says: one object for each thing that happens, written as JSON or as text.
#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>

#include "NolSchedCtls/services/lintel.h"

namespace NolSchedCtls {

class CNolSchedData;
struct CheckedEntry;

// Keys keep the order in which they were put in.
using Json = nlohmann::ordered_json;

class Answers {
  public:
    Answers(std::ostream& outA, std::ostream& errA) : out(outA), err(errA) {}

    // One object a line, everything to the output; else text, with messages to the error stream.
    void UseJson() { isJson = true; }

    // The first key tells the kind of answer. Throws OutputError.
    void Tell(const Json& answer);

    // Nothing can be told any more.
    bool IsLost() const;

  private:
    std::ostream& out;
    std::ostream& err;
    bool isJson = false;
};

// Null for no value.
Json JsonOf(const LintelValue& value);
Json JsonOf(const CheckedEntry& entry);
// The properties of the record, then {"overrides": [...]} in order of addition.
Json JsonOf(const CNolSchedData& record);

}  // namespace NolSchedCtls
