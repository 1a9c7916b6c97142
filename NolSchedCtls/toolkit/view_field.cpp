#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

FieldPlace::FieldPlace(Frame& frameA) : control(frameA.Control()), frame(&frameA) {}

ViewField::ViewField(FieldPlace placeA, std::string nameA, std::string captionA)
    : caption(std::move(captionA)), place(placeA), name(std::move(nameA)) {
    place.control.fields.push_back(this);
}

void ViewField::SetVisible(bool visibleA) { Assign(visible, visibleA); }
void ViewField::SetEnabled(bool enabledA) { Assign(enabled, enabledA); }
void ViewField::SetLeft(float leftA) { Assign(left, leftA); }
void ViewField::SetWidth(float widthA) { Assign(width, widthA); }
bool ViewField::IsShown() const { return visible && (place.frame == nullptr || place.frame->IsShown()); }

bool ViewField::IsUsable() const {
    return visible && enabled && (place.frame == nullptr || place.frame->IsUsable());
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
    if (former != nullptr && former != this) former->LostFocus.Raise();
    control.FocusMoved.Raise(*this);
}

bool ViewField::HasFocus() const { return place.control.focused == this; }

bool ViewField::BeginUserAct() {
    if (!IsUsable()) return false;
    if (!HasFocus()) SetFocus();
    return true;
}

ViewField* UserControl::FindField(std::string_view name) const {
    const auto found = std::find_if(fields.begin(), fields.end(),
                                    [name](const ViewField* field) { return field->Name() == name; });
    return found == fields.end() ? nullptr : *found;
}

ViewField* UserControl::FocusedField() const {
    return focused != nullptr && focused->IsUsable() ? focused : nullptr;
}

ViewField* UserControl::RefusedField() const {
    const auto found = std::find_if(fields.begin(), fields.end(), [](const ViewField* field) {
        return !field->Refusal().empty() && field->IsUsable();
    });
    return found == fields.end() ? nullptr : *found;
}

}  // namespace NolSchedCtls::inline v1
