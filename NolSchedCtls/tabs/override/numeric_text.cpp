#include "NolSchedCtls/tabs/override/numeric_text.h"

#include <cmath>

#include "NolSchedCtls/base/number.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/toolkit/text_box.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::optional<double> ReadNumber(std::string_view text) {
    text = Trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    return ParseNumber(text);
}

}  // namespace

bool IsNumeric(std::string_view text) { return ReadNumber(text).has_value(); }

std::optional<std::int32_t> ToWholeNumber(std::string_view text, std::int32_t lowest, std::int32_t highest) {
    const auto number = ReadNumber(text);
    if (!number) return {};
    const double whole = std::nearbyint(*number);
    if (whole < lowest || whole > highest) return {};
    return static_cast<std::int32_t>(whole);
}

void MNolSchedCtls::FilterDigitKey(TextBox& source, char32_t& nKeyAscii) {
    if (nKeyAscii == keyBackspace || (nKeyAscii >= U'0' && nKeyAscii <= U'9')) return;
    nKeyAscii = 0;
    source.Control().Beep.Raise(source);
}

}  // namespace NolSchedCtls::inline v1
