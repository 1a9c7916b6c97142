// What `nolsched` says: one object for each thing that happens, written as JSON or as text.
#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "NolSchedCtls/services/lintel.h"

namespace NolSchedCtls {

class CNolSchedData;
struct CheckedEntry;

// Keys keep the order in which they were put in.
using Json = nlohmann::ordered_json;

class Answers {
  public:
    // A row of a list ends at the width, in columns of a terminal; 0: no row is cut.
    Answers(std::ostream& outA, std::ostream& errA, std::size_t widthA = 0)
        : out(outA), err(errA), width(widthA) {}

    // One object a line, everything to the output; else text, with messages to the error stream.
    void UseJson() { isJson = true; }
    // Whether an answer is to hold what no text tells.
    bool IsJson() const { return isJson; }

    // The first key tells the kind of answer. Throws OutputError.
    void Tell(const Json& answer);

    // Nothing is told meanwhile.
    class Silence {
      public:
        explicit Silence(Answers& answersA) : answers(answersA), was(std::exchange(answers.isSilent, true)) {}
        ~Silence() { answers.isSilent = was; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

      private:
        Answers& answers;
        bool was;
    };

    // Nothing can be told any more.
    bool IsLost() const;

  private:
    std::ostream& out;
    std::ostream& err;
    std::size_t width;
    bool isJson = false;
    bool isSilent = false;
};

// Null for no value.
Json JsonOf(const LintelValue& value);
Json JsonOf(const CheckedEntry& entry);
// Its stored properties under their names, in the order of their columns.
Json PropertiesOf(const CNolSchedData& record);
// {"record": ...} with all properties, then {"overrides": [...]} in order of addition, each as its row.
Json JsonOf(const CNolSchedData& record);

}  // namespace NolSchedCtls
