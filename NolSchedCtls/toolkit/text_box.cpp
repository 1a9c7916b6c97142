#include "NolSchedCtls/toolkit/text_box.h"

#include <algorithm>

#include "NolSchedCtls/base/utf8.h"
#include "NolSchedCtls/toolkit/text_edit.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::size_t CharacterLength(std::string_view text) { return FirstCharacter(text).bytes; }

std::string Utf8Of(char32_t key) {
    const auto byte = [key](unsigned shift, unsigned mark, unsigned mask) {
        return static_cast<char>(mark | ((key >> shift) & mask));
    };
    if (key < 0x80) return {static_cast<char>(key)};
    if (key < 0x800) return {byte(6, 0xC0, 0x1F), byte(0, 0x80, 0x3F)};
    if (key < 0x10000) return {byte(12, 0xE0, 0x0F), byte(6, 0x80, 0x3F), byte(0, 0x80, 0x3F)};
    return {byte(18, 0xF0, 0x07), byte(12, 0x80, 0x3F), byte(6, 0x80, 0x3F), byte(0, 0x80, 0x3F)};
}

std::size_t LastCharacter(std::string_view text) {
    std::size_t start = 0;
    while (start + CharacterLength(text.substr(start)) < text.size())
        start += CharacterLength(text.substr(start));
    return start;
}

}  // namespace

std::string CutToLength(std::string_view text, std::size_t limit) {
    if (limit == 0) return std::string(text);
    std::size_t end = 0;
    for (std::size_t count = 0; count < limit && end < text.size(); ++count)
        end += CharacterLength(text.substr(end));
    return std::string(text.substr(0, end));
}

std::string TextAfterKey(const std::string& text, char32_t key, std::size_t limit) {
    if (key == keyBackspace) return text.empty() ? text : text.substr(0, LastCharacter(text));
    const std::string longer = text + Utf8Of(key);
    return CutToLength(longer, limit) == longer ? longer : text;
}

std::string TextAfterEdit(const std::string& text, std::string_view edited, std::size_t limit) {
    const auto sameStart =
        std::mismatch(text.begin(), text.end(), edited.begin(), edited.end()).second - edited.begin();
    const auto sameEnd =
        std::mismatch(text.rbegin(), text.rend(), edited.rbegin(), edited.rend()).second - edited.rbegin();
    const bool takesAway =
        sameStart + sameEnd >= static_cast<std::ptrdiff_t>(edited.size()) && edited.size() <= text.size();
    return takesAway ? std::string(edited) : CutToLength(edited, limit);
}

void TextBox::SetText(const std::string& textA) {
    if (Assign(FieldPart::Value, text, textA)) RaiseOwn(Changed);
}

char32_t TextBox::FilterKey(char32_t key) {
    Control().OnKeyTyped(*this, key);
    KeyTyped.Raise(key);
    return key;
}

bool TextBox::Key(char32_t key) {
    if (!BeginUserAct() || locked) return false;
    const char32_t passed = FilterKey(key);
    if (passed != 0) SetText(TextAfterKey(text, passed, maxLength));
    return true;
}

bool TextBox::Edit(std::string_view edited) {
    if (!BeginUserAct() || locked) return false;
    SetText(TextAfterEdit(text, edited, maxLength));
    return true;
}

bool TextBox::Paste(std::string_view textA) {
    if (!BeginUserAct() || locked) return false;
    SetText(CutToLength(textA, maxLength));
    return true;
}

}  // namespace NolSchedCtls::inline v1
