// How texts of users stand in lines that a terminal shows.
#pragma once

#include <string>
#include <string_view>

namespace NolSchedCtls {

// With what would move the cursor, command the terminal or turn the direction of writing as "\n", "\r", "\t",
// "\x1b" or "\u202e", and bytes that are no UTF-8 as "\xff"; all else as it stands.
std::string WithoutControls(std::string_view text);
// That, with each backslash doubled before: no two texts look alike.
std::string Visible(std::string_view text);
// A box: the head, then the text in visible lines of its own, each under the first. Ends with a line break.
std::string VisibleLines(const std::string& head, const std::string& text);
// With blanks after it up to so many columns of a terminal, whatever the locale: a wide letter takes two, an
// accent over the letter before it none.
std::string Padded(std::string text, std::size_t width);
// A line with what goes beyond so many columns, at least one, left out, and "…" for it; its line break stays.
std::string Cut(const std::string& line, std::size_t width);

}  // namespace NolSchedCtls
