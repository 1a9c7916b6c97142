// The line of a field that is typed.
#pragma once

#include <QLineEdit>

#include "NolSchedCtls/toolkit/dt_picker.h"

namespace NolSchedCtls {

// Whether the focus goes to another field, not to a menu, a popup or another window.
bool LeavesField(const QFocusEvent& event);

// Shows the field's text. A text that the field has refused is marked; its tool tip and its description tell
// why.
class TypedLine : public QLineEdit {
    Q_OBJECT

  public:
    TypedLine(TypedField& fieldA, QWidget* parent);

    // What the field holds; what was typed and not taken yet is gone then.
    void ShowField();
    // Takes what was typed so far. A refused text is selected if the focus
    // stays: what is typed next takes its place.
    void Commit();
    // Whether here stands what is not the field's value.
    bool IsUntaken() const;

  Q_SIGNALS:
    void Shown();

  private:
    TypedField& field;
};

// A whole time is typed over the one that is shown. Enter and the loss of the focus take it; a step is an
// hour, or a minute where the cursor stands in it.
class TimeLine : public TypedLine {
  public:
    TimeLine(DTPicker& fieldA, QWidget* parent) : TypedLine(fieldA, parent), field(fieldA) {}

    void Step(int steps);

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    bool BeginsAnew(const QKeyEvent& key) const;

    DTPicker& field;
    bool selectsAtRelease = false;
};

}  // namespace NolSchedCtls
