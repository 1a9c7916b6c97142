// What all view fields have in common, and the control that holds them.
//
// A view field holds what a widget shows and raises its events. It has two faces: what code writes (Set...),
// which raises the field's event before the write returns, and what a user does (Click, Pick, Key, ...),
// which does nothing and answers false on a hidden or disabled field. A screen mirrors the fields of a
// control by its FieldChanged.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/event.h"
#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

class CheckBox;
class DropDownList;
class DTPicker;
class Frame;
class Label;
class SSDateCombo;
class TextBox;
class UserControl;
class ViewField;
class XAmbitDownload;
class XAmbitPurge;
class XMarlet;

// A field as what it is. These are all the kinds there are: whoever treats them apart visits the variant (or
// calls VisitField of toolkit/fields.h), and does not compile before every kind is thought of.
using FieldKind = std::variant<CheckBox*, DropDownList*, TextBox*, Label*, Frame*, SSDateCombo*, DTPicker*,
                               XMarlet*, XAmbitPurge*, XAmbitDownload*>;

// What of a field a screen shows anew.
enum class FieldPart {
    Value,     // what stands in it; also a typed text that is refused
    Entries,   // what it offers; what was selected may be so no more
    Caption,   // what it is called
    State,     // visible, enabled, locked, its bounds; also where its frame is shown or enabled, or no more
    Geometry,  // Left and Width
};

// Where a field stands: on the control itself or in one of its frames.
struct FieldPlace {
    FieldPlace(UserControl& controlA) : control(controlA) {}
    NOLSCHED_API FieldPlace(Frame& frameA);

    UserControl& control;
    Frame* frame = nullptr;
};

class NOLSCHED_API ViewField {
  public:
    ViewField(const ViewField&) = delete;
    ViewField& operator=(const ViewField&) = delete;
    virtual ~ViewField() = default;

    virtual FieldKind Kind() = 0;

    // Unique in its control; an array's with the index, as "cbExcludeDay(3)".
    const std::string& Name() const { return name; }
    UserControl& Control() const { return place.control; }
    // The frame that holds the field, or nothing.
    Frame* Container() const { return place.frame; }

    bool Visible() const { return visible; }
    void SetVisible(bool visibleA);
    bool Enabled() const { return enabled; }
    void SetEnabled(bool enabledA);
    bool IsShown() const;   // visible, and its frame too
    bool IsUsable() const;  // shown and enabled, and its frame too

    // Empty on fields without one; "&" stands before the mnemonic, "&&" for "&".
    const std::string& Caption() const { return caption; }
    // Without the mark of the mnemonic and the blanks at both ends.
    std::string PlainCaption() const;
    // The letter of the mnemonic in lower case, 0 without one.
    char Mnemonic() const;

    // In twips, from the frame's left edge.
    float Left() const { return left; }
    void SetLeft(float leftA);
    float Width() const { return width; }
    void SetWidth(float widthA);

    // Why the text that a user has typed cannot be taken, in one sentence; empty where there is no such text.
    virtual const std::string& Refusal() const;

    // Moves the control's focus here. Throws NolSchedError on a field that is not usable.
    void SetFocus();
    bool HasFocus() const;
    // Whether a field of this kind takes the focus by Tab.
    virtual bool IsTabStop() const { return true; }

  protected:
    ViewField(FieldPlace placeA, std::string_view nameA, std::string_view captionA = {});

    // True if a user can reach the field; it then has the focus.
    bool BeginUserAct();

    // Raises the control's FieldChanged.
    void Tell(FieldPart part);

    // Raises an event of the field, which its control hears before any handler.
    void RaiseOwn(const Event<>& event);

    template <class T>
    bool Assign(FieldPart part, T& member, const T& value) {
        if (member == value) return false;
        member = value;
        Tell(part);
        return true;
    }

    std::string caption;

  private:
    friend class Frame;
    virtual void TellState() { Tell(FieldPart::State); }

    FieldPlace place;
    std::string name;
    float left = 0;
    float width = 0;
    bool visible = true;
    bool enabled = true;
};

class NOLSCHED_API Frame : public ViewField {
  public:
    Frame(FieldPlace placeA, std::string_view nameA, std::string_view captionA)
        : ViewField(placeA, nameA, captionA) {}
    FieldKind Kind() override { return this; }
    bool IsTabStop() const override { return false; }

  private:
    void TellState() override;  // its fields, too, are shown and enabled only as it is
};

class NOLSCHED_API Label : public ViewField {
  public:
    Label(FieldPlace placeA, std::string_view nameA, std::string_view captionA)
        : ViewField(placeA, nameA, captionA) {}
    FieldKind Kind() override { return this; }
    bool IsTabStop() const override { return false; }
    void SetCaption(const std::string& captionA) { Assign(FieldPart::Caption, caption, captionA); }
};

template <class Kind, class... Kinds>
constexpr bool IsOneOf(const std::variant<Kinds...>* /*kinds*/) {
    return (std::is_same_v<Kind*, Kinds> || ...);
}

// The field if it is of that kind, else nothing.
template <class Kind>
Kind* FieldAs(ViewField& field) {
    static_assert(IsOneOf<Kind>(static_cast<const FieldKind*>(nullptr)), "not one of the kinds of FieldKind");
    const FieldKind kind = field.Kind();
    Kind* const* const found = std::get_if<Kind*>(&kind);
    return found == nullptr ? nullptr : *found;
}

// A control with view fields, which register themselves in tab order and end with it.
class NOLSCHED_API UserControl {
  public:
    UserControl() { fields.reserve(10); }  // all that most tabs have
    UserControl(const UserControl&) = delete;
    UserControl& operator=(const UserControl&) = delete;
    virtual ~UserControl() = default;

    const std::vector<ViewField*>& Fields() const { return fields; }
    // Nothing if there is no field of that exact name.
    ViewField* FindField(std::string_view name) const;

    // Throws NolSchedError if there is no such field, or if it is of another kind.
    template <class Kind>
    Kind& Field(std::string_view name) const {
        ViewField* const field = FindField(name);
        if (Kind* const found = field == nullptr ? nullptr : FieldAs<Kind>(*field)) return *found;
        throw NolSchedError("The control has no such field " + Quoted(name) + ".");
    }

    // Whether the host shows the control at all; it does from the start.
    bool Visible() const { return visible; }
    void SetVisible(bool visibleA) { visible = visibleA; }

    // The field that has the focus, or nothing while that field is not usable.
    ViewField* FocusedField() const;
    // The user has gone to what is no field of the control: a button, another page. The field that had the
    // focus hears it, and has it again when the user comes back.
    void LeaveFocus();
    // The usable fields that take the focus by Tab, in the order in which Tab goes through them.
    std::vector<ViewField*> TabStops() const;
    // The label whose mnemonic is the field's; nothing if it has none, or bears one itself.
    const Label* LabelOf(const ViewField& field) const;
    // The first usable field with a text that it refuses, or nothing.
    ViewField* RefusedField() const;

    Event<ViewField&, FieldPart> FieldChanged;  // before the field's own event
    Event<ViewField&> FocusLeft;                // the field that had the focus, once; before FocusMoved
    // Raised again for the field that has the focus already: a screen may have lost it meanwhile.
    Event<ViewField&> FocusMoved;
    Event<ViewField&> Beep;  // the system's beep, for the field that refused a key

  private:
    friend class ViewField;
    friend class TextBox;

    // What the events of its fields set off in the control itself, before any handler hears them.
    virtual void OnEvent(ViewField& /*field*/, const Event<>& /*event*/) {}
    virtual void OnKeyTyped(TextBox& /*box*/, char32_t& /*key*/) {}
    virtual void OnFocusLeft(ViewField& /*field*/) {}
    void RaiseFocusLeft(ViewField& field);

    std::vector<ViewField*> fields;
    ViewField* focused = nullptr;
    bool hasLeft = false;  // the focus is elsewhere, which the focused field has heard
    bool visible = true;
};

}  // namespace NolSchedCtls::inline v1
