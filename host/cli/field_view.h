// What a field shows, as `look` tells it.
#pragma once

#include "NolSchedCtls/toolkit/view_field.h"
#include "host/cli/answers.h"

namespace NolSchedCtls {

// {"name": ..., "kind": ..., "visible": ..., "enabled": ..., and what the kind shows}, with its place or
// without.
Json Describe(const ViewField& field, bool withPlace = true);

// Whether there is anything that a user can do with it: a label or a frame only shows.
bool IsForActs(const ViewField& field);

}  // namespace NolSchedCtls
