// A check box: 0 clear, 1 ticked.
#pragma once

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API CheckBox : public ViewField {
  public:
    CheckBox(FieldPlace placeA, std::string_view nameA, std::string_view captionA)
        : ViewField(placeA, nameA, captionA) {}
    FieldKind Kind() override { return this; }

    int Value() const { return value; }
    // Raises Clicked if the value changes.
    void SetValue(int valueA) {
        if (Assign(FieldPart::Value, value, valueA)) RaiseOwn(Clicked);
    }

    // The user turns the box over.
    bool Click() {
        if (!BeginUserAct()) return false;
        SetValue(value == 0 ? 1 : 0);
        return true;
    }

    Event<> Clicked;

  private:
    int value = 0;
};

}  // namespace NolSchedCtls::inline v1
