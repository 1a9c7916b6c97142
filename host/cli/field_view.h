// What a field shows and what it offers, as `look` and refusals tell it.
#pragma once

#include <string>
#include <vector>

#include "NolSchedCtls/toolkit/view_field.h"
#include "host/cli/answers.h"

namespace NolSchedCtls {

// "list", "date", ...
std::string KindName(const ViewField& field);

// What a user may choose there; bounds as one text. Empty for a field without a choice.
std::vector<std::string> OfferedBy(const ViewField& field);

// {"name": ..., "kind": ..., "visible": ..., "enabled": ..., and what the kind shows}, with its place or
// without.
Json Describe(const ViewField& field, bool withPlace = true);

// Whether there is anything that a user can do with it: a label or a frame only shows.
bool IsForActs(const ViewField& field);

// "2026-03-02".
std::string DayText(DateTime date);

}  // namespace NolSchedCtls
