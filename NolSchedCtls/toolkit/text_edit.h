// What a user's editing makes of a text that has a limit.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace NolSchedCtls::inline v1 {

// The text without what lies beyond `limit` characters; 0 is no limit. A byte that is no UTF-8 counts as one.
std::string CutToLength(std::string_view text, std::size_t limit);

// The text after a key at its end: backspace takes the last character away, any other key is added if it
// fits.
std::string TextAfterKey(const std::string& text, char32_t key, std::size_t limit);

// What is left of an edit: a text within the limit, or what only takes characters away from a longer one;
// else its beginning.
std::string TextAfterEdit(const std::string& text, std::string_view edited, std::size_t limit);

}  // namespace NolSchedCtls::inline v1
