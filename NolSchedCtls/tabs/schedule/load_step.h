// One step of a load.
#pragma once

#include <string>
#include <string_view>

#include "NolSchedCtls/base/error.h"

namespace NolSchedCtls::inline v1 {

inline std::string ValueText(const std::string& sValue) { return Quoted(sValue); }
inline std::string ValueText(auto number) { return std::to_string(number); }

// Runs the step that shows a property. A value that the view cannot show is told with the record's property
// before it; a failure of the host, in a service or a handler, stays what it is.
template <class Value, class Step>
void ShowProperty(std::string_view sProperty, const Value& value, Step step) {
    try {
        step();
    } catch (const ValueError& error) {
        throw ValueError("The entry's " + std::string(sProperty) + " " + ValueText(value) +
                         " cannot be shown: " + error.what());
    }
}

}  // namespace NolSchedCtls::inline v1
