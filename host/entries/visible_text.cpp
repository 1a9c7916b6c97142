#include "host/entries/visible_text.h"

#include <locale.h>
#include <utf8.h>
#include <wchar.h>

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

bool IsPlain(char letter) { return letter >= ' ' && letter < '\x7F'; }

// The C library knows the widths of letters in a locale alone; while this stands, the thread has one of
// UTF-8.
class Utf8Locale {
  public:
    Utf8Locale() : former(uselocale(Utf8())) {}
    ~Utf8Locale() { uselocale(former); }
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

  private:
    static locale_t Utf8() {
        static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
        return utf8;
    }
    locale_t former;
};

std::size_t ColumnsOf(char32_t letter) {
    const int columns = wcwidth(static_cast<wchar_t>(letter));
    return columns < 0 ? 1 : static_cast<std::size_t>(columns);
}

// The length of the text's beginning that takes at most so many columns, and those that it takes.
std::pair<std::size_t, std::size_t> Within(std::string_view text, std::size_t most) {
    if (std::ranges::all_of(text, IsPlain)) return {std::min(text.size(), most), std::min(text.size(), most)};
    const Utf8Locale locale;
    const char* end = text.data();
    std::size_t columns = 0;
    for (const char* at = end; at != text.data() + text.size(); end = at) {
        const std::size_t more = ColumnsOf(utf8::unchecked::next(at));
        if (columns + more > most) break;
        columns += more;
    }
    return {static_cast<std::size_t>(end - text.data()), columns};
}

std::size_t ColumnsOf(std::string_view text) { return Within(text, text.size()).second; }

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
        shown += (shown.empty() ? head : std::string(ColumnsOf(head), ' ')) + Visible(line) + '\n';
    }
    return shown;
}

std::string Padded(std::string text, std::size_t width) {
    const std::size_t columns = ColumnsOf(text);
    return std::move(text) + std::string(width - std::min(columns, width), ' ');
}

std::string Cut(const std::string& line, std::size_t width) {
    const std::string_view text(line.data(), line.find_last_not_of('\n') + 1);
    if (ColumnsOf(text) <= width) return line;
    return line.substr(0, Within(text, width - 1).first) + "…" + line.substr(text.size());
}

}  // namespace NolSchedCtls
