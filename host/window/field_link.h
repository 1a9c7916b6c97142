// The tie between a widget and its view field, which ends with the widget.
#pragma once

#include <QWidget>
#include <functional>

#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls {

// A wheel over the widget goes to what holds it, unless the widget has the focus; nor does it give the focus.
void LeaveWheelToPage(QWidget& widget);

// From here on the widget is visible and enabled as the field is, and `show` puts the rest of what the field
// holds on it: at once, and whenever it is asked to. The widget's focus is the field's.
class FieldLink : public QObject {
    Q_OBJECT

  public:
    // A child of the widget.
    static FieldLink* Tie(ViewField& field, QWidget& widget, std::function<void()> show);
    static FieldLink& Of(const QWidget& widget);

    void Mirror();

    // Carries out what the user did to the widget; the widget then shows what the field holds. A failure is
    // told in a message box. The widget may have ended within the act.
    void Act(const std::function<void()>& act);
    // A part of the widget that takes the focus in its place.
    void AddFocusPart(QWidget& part) { part.installEventFilter(this); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    FieldLink(ViewField& fieldA, QWidget& widgetA, std::function<void()> showA);

    ViewField& field;
    QWidget& widget;
    std::function<void()> show;
};

}  // namespace NolSchedCtls
