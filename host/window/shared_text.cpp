#include "host/window/shared_text.h"

#include <functional>
#include <string>
#include <unordered_map>

#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

struct TextHash : std::hash<std::string_view> {
    using is_transparent = void;
};

}  // namespace

const SharedText::Kept SharedText::empty;

SharedText::SharedText(std::string_view stored) {
    static std::unordered_map<std::string, Kept, TextHash, std::equal_to<>> all;  // whose nodes stay in place
    if (stored.empty()) return;
    auto found = all.find(stored);
    if (found == all.end()) found = all.emplace(stored, Kept{ToVisible(stored), all.size() + 1}).first;
    kept = &found->second;
}

}  // namespace NolSchedCtls
