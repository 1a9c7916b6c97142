#include "NolSchedCtls/base/number.h"

#include <charconv>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <system_error>

namespace NolSchedCtls::inline v1 {

namespace {

constexpr double tooLarge = std::numeric_limits<double>::infinity();

// A number too small for a double is tooLarge, too: from_chars tells one range error for both ends.
#ifdef __cpp_lib_to_chars
std::optional<double> Read(std::string_view text) {
    double number = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, number);
    if (error == std::errc::invalid_argument || end != textEnd) return {};
    return error == std::errc() ? number : tooLarge;
}
#else  // libc++ has no from_chars for it; its streams read what strtod reads
std::optional<double> Read(std::string_view text) {
    if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return {};
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double number = 0;
    stream >> number;
    if (!stream.eof() || (stream.fail() && number == 0)) return {};
    return stream.fail() ? tooLarge : number;
}
#endif

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    if (digits.find_first_of("0123456789.") != 0) return {};
    return Read(text);
}

}  // namespace NolSchedCtls::inline v1
