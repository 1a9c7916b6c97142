// One step of a load.
#pragma once

#include <string>
#include <string_view>

#include "NolSchedCtls/base/error.h"

namespace NolSchedCtls {

inline std::string ValueText(const std::string& sValue) { return Quoted(sValue); }
inline std::string ValueText(auto number) { return std::to_string(number); }

// Runs the step that shows a property. A view field's failure names what the view lacks; this puts the
// record's property and value before it.
template <class Value, class Step>
void ShowProperty(std::string_view sProperty, const Value& value, Step step) {
    Explained(step, [&] {
        return "The entry's " + std::string(sProperty) + " " + ValueText(value) + " cannot be shown: ";
    });
}

}  // namespace NolSchedCtls
