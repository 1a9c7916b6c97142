#include "NolSchedCtls/toolkit/view_field.h"

#include <iterator>
#include <utility>

#include "NolSchedCtls/base/collection.h"
#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls::inline v1 {

FieldPlace::FieldPlace(Frame& frameA) : control(frameA.Control()), frame(&frameA) {}

ViewField::ViewField(FieldPlace placeA, std::string_view nameA, std::string_view captionA)
    : caption(captionA), place(placeA), name(nameA) {
    place.control.fields.push_back(this);
}

void ViewField::Tell(FieldPart part) { place.control.FieldChanged.Raise(*this, part); }

void ViewField::RaiseOwn(const Event<>& event) {
    place.control.OnEvent(*this, event);
    event.Raise();
}

void Frame::TellState() {
    Tell(FieldPart::State);
    for (ViewField* field : Control().Fields())
        if (field->Container() == this) field->TellState();
}

void ViewField::SetVisible(bool visibleA) {
    if (std::exchange(visible, visibleA) != visibleA) TellState();
}

void ViewField::SetEnabled(bool enabledA) {
    if (std::exchange(enabled, enabledA) != enabledA) TellState();
}

void ViewField::SetLeft(float leftA) { Assign(FieldPart::Geometry, left, leftA); }
void ViewField::SetWidth(float widthA) { Assign(FieldPart::Geometry, width, widthA); }
bool ViewField::IsShown() const { return visible && (place.frame == nullptr || place.frame->IsShown()); }

bool ViewField::IsUsable() const {
    return visible && enabled && (place.frame == nullptr || place.frame->IsUsable());
}

std::string ViewField::PlainCaption() const {
    std::string plain;
    bool isMark = false;
    for (const char letter : caption) {
        isMark = letter == '&' && !isMark;
        if (!isMark) plain += letter;
    }
    return std::string(Trimmed(plain));
}

char ViewField::Mnemonic() const {
    bool isMark = false;
    for (const char letter : caption) {
        if (isMark && letter != '&') return FoldedLetter(letter);
        isMark = letter == '&' && !isMark;
    }
    return 0;
}

const std::string& ViewField::Refusal() const {
    static const std::string none;
    return none;
}

void ViewField::SetFocus() {
    if (!IsUsable())
        throw NolSchedError("The field " + name + " cannot take the focus: it is " +
                            (IsShown() ? "disabled." : "hidden."));
    UserControl& control = place.control;
    ViewField* const former = std::exchange(control.focused, this);
    const bool hadLeft = std::exchange(control.hasLeft, false);
    if (former != nullptr && former != this && !hadLeft) control.RaiseFocusLeft(*former);
    if (HasFocus()) control.FocusMoved.Raise(*this);  // who heard the other may have moved it on
}

bool ViewField::HasFocus() const { return place.control.focused == this; }

bool ViewField::BeginUserAct() {
    if (!IsUsable()) return false;
    if (!HasFocus()) SetFocus();
    place.control.hasLeft = false;  // the user has come back
    return IsUsable();              // who heard of the focus may have changed it
}

ViewField* UserControl::FindField(std::string_view name) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [name](const ViewField* field) { return field->Name() == name; });
    return found == fields.end() ? nullptr : *found;
}

ViewField* UserControl::FocusedField() const {
    return focused != nullptr && focused->IsUsable() ? focused : nullptr;
}

void UserControl::LeaveFocus() {
    if (focused != nullptr && !std::exchange(hasLeft, true)) RaiseFocusLeft(*focused);
}

void UserControl::RaiseFocusLeft(ViewField& field) {
    OnFocusLeft(field);
    FocusLeft.Raise(field);
}

std::vector<ViewField*> UserControl::TabStops() const {
    std::vector<ViewField*> stops;
    std::copy_if(fields.begin(), fields.end(), std::back_inserter(stops),
                 [](const ViewField* field) { return field->IsTabStop() && field->IsUsable(); });
    return stops;
}

// A label bears the mnemonic of the field that follows it.
const Label* UserControl::LabelOf(const ViewField& field) const {
    const auto found = std::find(fields.begin(), fields.end(), &field);
    if (found == fields.begin() || found == fields.end() || field.Mnemonic() != 0) return nullptr;
    ViewField& before = **std::prev(found);
    const bool isNamed = field.IsTabStop() && before.Mnemonic() != 0;
    return isNamed && before.Container() == field.Container() ? FieldAs<Label>(before) : nullptr;
}

ViewField* UserControl::RefusedField() const {
    const auto found = std::find_if(fields.begin(), fields.end(), [](const ViewField* field) {
        return !field->Refusal().empty() && field->IsUsable();
    });
    return found == fields.end() ? nullptr : *found;
}

}  // namespace NolSchedCtls::inline v1
