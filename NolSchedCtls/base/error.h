// The one family of failures of this library, and how a value is named in their messages.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

// Every failure that the library itself throws derives from this. The message names the thing and the value.
class NOLSCHED_API NolSchedError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Reading or removing a key or position that a collection does not hold.
class NOLSCHED_API MissingKeyError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

// Adding under a key that a collection already holds.
class NOLSCHED_API DuplicateKeyError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

// A value that cannot be shown, chosen or converted.
class NOLSCHED_API ValueError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

// The text in double quotes, cut after 60 bytes at a character's border, so that a message stays a line.
NOLSCHED_API std::string Quoted(std::string_view text);

// What the failure that is being handled says; "no failure" outside a handler.
NOLSCHED_API std::string PresentFailure();

// Gives what the step gives. A NolSchedError of the step is thrown again as Error, with what `about` gives
// (asked only then) before its message.
template <class Error = NolSchedError, class Step, class About>
decltype(auto) Explained(Step&& step, About&& about) {
    try {
        return step();
    } catch (const NolSchedError& error) {
        throw Error(about() + error.what());
    }
}

}  // namespace NolSchedCtls::inline v1
