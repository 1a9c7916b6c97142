// A text box with a length limit and a key filter.
#pragma once

#include <cstddef>
#include <cstdint>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

inline constexpr char32_t keyBackspace = 8;

// The limit binds users alone: what code writes stands as it is, so that no stored value is cut.
class NOLSCHED_API TextBox : public ViewField {
  public:
    TextBox(FieldPlace placeA, std::string_view nameA, std::size_t maxLengthA = 0)
        : ViewField(placeA, nameA), maxLength(maxLengthA) {}
    FieldKind Kind() override { return this; }

    const std::string& Text() const { return text; }  // UTF-8
    void SetText(const std::string& textA);           // raises Changed if the text changes
    std::size_t MaxLength() const { return maxLength; }

    // A locked box takes the focus, but nothing from a user.
    bool Locked() const { return locked; }
    void SetLocked(bool lockedA) { Assign(FieldPart::State, locked, lockedA); }

    bool Key(char32_t key);             // at the text's end, through the filter
    bool Paste(std::string_view text);  // replaces the text, past the filter
    // For a screen that edits by itself: what is left of a key after the filter, 0 if it was swallowed; and
    // the whole text as it then stands.
    char32_t FilterKey(char32_t key);
    bool Edit(std::string_view edited);

    Event<char32_t&> KeyTyped;  // a handler that sets the key to 0 swallows it
    Event<> Changed;

  private:
    std::string text;
    std::size_t maxLength;
    bool locked = false;
};

}  // namespace NolSchedCtls::inline v1
