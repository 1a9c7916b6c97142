// A field into which a user types the text of a value: a day or a time of day.
#pragma once

#include <string>
#include <string_view>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

// A text that cannot be taken stays in the field as it was typed, and the value as it was. The next value,
// typed, picked or written by code, takes its place.
class NOLSCHED_API TypedField : public ViewField {
  public:
    std::string Text() const { return refusal.empty() ? ValueText() : typed; }
    // The whole text at once. False for a text that is refused, and where no user reaches the field.
    bool TypeText(std::string_view text);
    const std::string& Refusal() const override { return refusal; }
    // Takes a refused text away again.
    void DropRefusedText();

  protected:
    using ViewField::ViewField;

    virtual std::string ValueText() const = 0;
    // Takes the value of the text and gives nothing, or why it cannot.
    virtual std::string Take(std::string_view text) = 0;

  private:
    std::string typed;  // if it was refused
    std::string refusal;
};

}  // namespace NolSchedCtls::inline v1
