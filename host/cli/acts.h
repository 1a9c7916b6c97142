// A user's acts on view fields by name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls {

// A line of a script, or a command line, that cannot be carried out.
class UsageError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

enum class Verb { Click, Pick, Type, Paste, Date, Time };

// Nothing for a word that stands for no act on a field.
std::optional<Verb> VerbNamed(std::string_view word);

// A field as a script names it: "hom.txtDuration".
struct Target {
    std::string sName;
    ViewField& field;
};

// Throws UsageError that names the field and what is offered, for an act that a user could not do.
void DoAct(Verb verb, const Target& target, const std::string& text);

}  // namespace NolSchedCtls
