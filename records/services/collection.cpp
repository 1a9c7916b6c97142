#include "records/services/collection.h"

namespace NolSchedCtls {

namespace {

char Folded(char letter) noexcept {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

bool EqualKeys(std::string_view left, std::string_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return Folded(a) == Folded(b); });
}

}  // namespace NolSchedCtls
