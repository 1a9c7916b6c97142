// Small things done to texts everywhere: whole numbers read, blanks trimmed, lists joined.
#pragma once

#include <charconv>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace NolSchedCtls::inline v1 {

// A whole number in plain digits, after a minus at most; nothing for any other text or a number that Number
// does not hold.
template <class Number = std::int32_t>
std::optional<Number> ParseWhole(std::string_view text) {
    Number number = 0;
    const char* const textEnd = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), textEnd, number);
    if (error != std::errc() || end != textEnd) return {};
    return number;
}

// Takes `fewest` to `most` digits off the front of the text; false for fewer.
constexpr bool TakeDigits(std::string_view& text, std::size_t fewest, std::size_t most, int& number) {
    std::size_t count = 0;
    number = 0;
    while (count < most && count < text.size() && text[count] >= '0' && text[count] <= '9')
        number = number * 10 + (text[count++] - '0');
    text.remove_prefix(count);
    return count >= fewest;
}

// The text without the characters of `blanks` at its ends.
constexpr std::string_view Trimmed(std::string_view text, std::string_view blanks = " ") {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// What `textOf` makes of each part, with the separator between.
template <class Parts, class TextOf = std::identity>
std::string Joined(const Parts& parts, TextOf textOf = {}, std::string_view separator = ", ") {
    std::string joined;
    bool isFirst = true;
    for (const auto& part : parts) {
        if (!isFirst) joined += separator;
        isFirst = false;
        joined += std::invoke(textOf, part);
    }
    return joined;
}

}  // namespace NolSchedCtls::inline v1
