// What all view fields have in common, and the control that holds them.
//
// A view field holds what a widget shows and raises its events. It has two faces: what code writes (Set...),
// which raises the field's event before the write returns, and what a user does (Click, Pick, Key, ...),
// which does nothing and answers false on a hidden or disabled field. A screen mirrors a field by its Refresh
// event.
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

    // Empty on fields without one; "&" stands before the mnemonic.
    const std::string& Caption() const { return caption; }

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

    Event<> Refresh;    // anything that a screen shows has changed; raised before the field's own event
    Event<> LostFocus;  // the control's focus has gone to another field

  protected:
    ViewField(FieldPlace placeA, std::string nameA, std::string captionA = {});

    // True if a user can reach the field; it then has the focus.
    bool BeginUserAct();

    template <class T>
    bool Assign(T& member, const T& value) {
        if (member == value) return false;
        member = value;
        Refresh.Raise();
        return true;
    }

    std::string caption;

  private:
    FieldPlace place;
    std::string name;
    float left = 0;
    float width = 0;
    bool visible = true;
    bool enabled = true;
};

class NOLSCHED_API Frame : public ViewField {
  public:
    Frame(FieldPlace placeA, std::string nameA, std::string captionA)
        : ViewField(placeA, std::move(nameA), std::move(captionA)) {}
    FieldKind Kind() override { return this; }
};

class NOLSCHED_API Label : public ViewField {
  public:
    Label(FieldPlace placeA, std::string nameA, std::string captionA)
        : ViewField(placeA, std::move(nameA), std::move(captionA)) {}
    FieldKind Kind() override { return this; }
    void SetCaption(const std::string& captionA) { Assign(caption, captionA); }
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
    UserControl() = default;
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
    // The first usable field with a text that it refuses, or nothing.
    ViewField* RefusedField() const;

    // Raised again for the field that has the focus already: a screen may have lost it meanwhile.
    Event<ViewField&> FocusMoved;
    Event<ViewField&> Beep;  // the system's beep, for the field that refused a key

  private:
    friend class ViewField;

    std::vector<ViewField*> fields;
    ViewField* focused = nullptr;
    bool visible = true;
};

}  // namespace NolSchedCtls::inline v1
