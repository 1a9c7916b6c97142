// A user's acts on view fields by name.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "NolSchedCtls/toolkit/view_field.h"
#include "host/entries/arguments.h"

namespace NolSchedCtls {

enum class Verb { Click, Pick, Type, Paste, Date, Time };

// Nothing for a word that stands for no act on a field.
std::optional<Verb> VerbNamed(std::string_view word);

// Whether it is an act for that kind of field.
bool IsKnown(Verb verb, const ViewField& field);

// A field as a script names it: "hom.txtDuration".
struct Target {
    std::string name;
    ViewField& field;
    // Why it cannot be used now, as `cboPeriod is "Once"`; may be none, and give nothing.
    std::function<std::string()> obstacle = {};
};

// Throws UsageError that names the field and what is offered, for an act that a user could not do.
void DoAct(Verb verb, const Target& target, const std::string& text);

}  // namespace NolSchedCtls
