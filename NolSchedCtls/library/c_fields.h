// The properties of a field by name and as texts.
#pragma once

#include <string>
#include <string_view>

#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1::C {

// Throws CallError for a name that no property has.
std::string ReadProperty(const ViewField& field, std::string_view property);

}  // namespace NolSchedCtls::inline v1::C
