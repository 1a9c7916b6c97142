#include "host/entries/visible_text.h"

#include <utf8.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>
#include <utility>

namespace NolSchedCtls {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Line and paragraph separators and the marks of direction, beside the controls.
constexpr auto hidden = std::to_array<Range>({{0, 0x1F},
                                              {0x7F, 0x9F},
                                              {0x061C, 0x061C},
                                              {0x200E, 0x200F},
                                              {0x2028, 0x202E},
                                              {0x2066, 0x2069},
                                              {0xFEFF, 0xFEFF}});

bool IsHidden(char32_t letter) {
    return std::ranges::any_of(
        hidden, [letter](const Range& range) { return letter >= range.first && letter <= range.last; });
}

std::string Escape(char32_t letter, bool isByte) {
    constexpr std::pair<char32_t, const char*> named[] = {{'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}};
    for (const auto& [known, escape] : named)
        if (known == letter) return escape;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), isByte || letter < ' ' ? "\\x%02x" : "\\u%04x",
                  static_cast<unsigned>(letter));
    return text.data();
}

std::size_t LettersOf(const std::string& text) {
    return static_cast<std::size_t>(utf8::unchecked::distance(text.begin(), text.end()));
}

bool IsPlain(char letter) { return letter >= ' ' && letter < '\x7F'; }

}  // namespace

std::string WithoutControls(std::string_view text) {
    if (std::ranges::all_of(text, IsPlain)) return std::string(text);
    std::string shown;
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end) {
        for (const char* const broken = utf8::find_invalid(at, end); at != broken;) {
            const char* const start = at;
            const char32_t letter = utf8::unchecked::next(at);
            shown += IsHidden(letter) ? Escape(letter, false) : std::string(start, at);
        }
        if (at != end) shown += Escape(static_cast<unsigned char>(*at++), true);
    }
    return shown;
}

std::string Visible(std::string_view text) {
    std::string doubled(text);
    for (std::size_t at = 0; (at = doubled.find('\\', at)) != std::string::npos; at += 2)
        doubled.insert(at, 1, '\\');
    return WithoutControls(doubled);
}

std::string VisibleLines(const std::string& head, const std::string& text) {
    std::string shown;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        shown += (shown.empty() ? head : std::string(LettersOf(head), ' ')) + Visible(line) + '\n';
    }
    return shown;
}

std::string Padded(std::string text, std::size_t width) {
    const std::size_t letters = LettersOf(text);
    return std::move(text) + std::string(width - std::min(letters, width), ' ');
}

}  // namespace NolSchedCtls
