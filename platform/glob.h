// Names chosen by a pattern.
#pragma once

#include <string>

namespace NolSchedCtls {

// * stands for any letters, ? for one, [a-c] for one of these, as in a shell; capitals count.
bool MatchesGlob(const std::string& text, const std::string& pattern);

}  // namespace NolSchedCtls
