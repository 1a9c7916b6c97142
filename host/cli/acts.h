// A user's acts on view fields by name.
#pragma once

#include <functional>
#include <string>

#include "NolSchedCtls/toolkit/acts.h"
#include "host/entries/arguments.h"

namespace NolSchedCtls {

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
