#include "NolSchedCtls/tabs/override/numeric_text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/toolkit/text_box.h"

namespace NolSchedCtls::inline v1 {

namespace {

// Nothing for what is no number; infinite for a number beyond all bounds. A number too small for a double
// ("1e-999") is infinite too: from_chars tells one range error for both ends, and no field takes either.
std::optional<double> ReadNumber(std::string_view text) {
    text = Trimmed(text);
    const bool hasSign = text.starts_with('+') || text.starts_with('-');
    const std::string_view digits = text.substr(hasSign ? 1 : 0);
    if (digits.find_first_of("0123456789.") != 0) return {};
    if (text.starts_with('+')) text = digits;
    double number = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, number);
    if (error == std::errc::invalid_argument || end != textEnd) return {};
    return error == std::errc() ? number : std::numeric_limits<double>::infinity();
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
