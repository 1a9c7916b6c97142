// Numbers with a fraction, read the same whatever the locale and the standard library.
#pragma once

#include <optional>
#include <string_view>

namespace NolSchedCtls::inline v1 {

// A number in plain digits with a point and an exponent, after a minus at most; infinite where a double
// cannot hold it, nothing for any other text.
std::optional<double> ParseNumber(std::string_view text);

}  // namespace NolSchedCtls::inline v1
