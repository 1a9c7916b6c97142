// UTF-8, a character at a time.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace NolSchedCtls::inline v1 {

struct Character {
    char32_t code = U'\uFFFD';
    std::size_t bytes = 1;  // that it takes up

    // A byte that is no UTF-8 stands for U+FFFD, which itself takes three.
    bool IsBroken() const { return code == U'\uFFFD' && bytes == 1; }
};

// The character at the front of a text that is not empty.
constexpr Character FirstCharacter(std::string_view text) {
    constexpr std::array<char32_t, 5> lowest = {0, 0, 0x80, 0x800, 0x10000};  // that takes so many bytes
    const auto byte = [text](std::size_t place) {
        return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
    };
    const unsigned lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t bytes = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    char32_t code = lead & (0x7FU >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) return {};
        code = code << 6U | (byte(i) & 0x3FU);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (bytes == 0 || code < lowest[bytes] || isSurrogate || code > 0x10FFFF) return {};
    return {code, bytes};
}

constexpr bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const Character first = FirstCharacter(text);
        if (first.IsBroken()) return false;
        text.remove_prefix(first.bytes);
    }
    return true;
}

}  // namespace NolSchedCtls::inline v1
