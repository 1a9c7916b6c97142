// A user's acts on view fields by name, and what each field shows.
#pragma once

#include <string>
#include <string_view>

#include "NolSchedCtls/toolkit/view_field.h"
#include "host/cli/answers.h"

namespace NolSchedCtls {

// A line of a script, or a command line, that cannot be carried out.
class UsageError : public NolSchedError {
  public:
    using NolSchedError::NolSchedError;
};

// True for a word that stands for an act on a field: click, pick, type, paste, ...
bool IsAct(std::string_view verb);

// A field as a script names it: "hom.txtDuration".
struct Target {
    std::string sName;
    ViewField& field;
};

// Throws UsageError that names the field and what is offered, for an act that a user could not do.
void DoAct(std::string_view verb, const Target& target, const std::string& text);

// {"name": ..., "kind": ..., "visible": ..., "enabled": ..., and what the kind shows}.
Json Describe(const ViewField& field);

}  // namespace NolSchedCtls
