// How the override tabs read a number out of a text box, where a user may have pasted anything.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace NolSchedCtls::inline v1 {

class TextBox;

// A sign, digits with or without a decimal point, an exponent; blanks around it are allowed.
bool IsNumeric(std::string_view text);

// The nearest whole number, a half going to the even neighbour; nothing if the text is not numeric or the
// number lies outside the bounds.
std::optional<std::int32_t> ToWholeNumber(std::string_view text, std::int32_t lowest, std::int32_t highest);

namespace MNolSchedCtls {

// Lets backspace and digits pass; any other key becomes 0 and beeps at the text box.
void FilterDigitKey(TextBox& source, char32_t& nKeyAscii);

}  // namespace MNolSchedCtls

}  // namespace NolSchedCtls::inline v1
