#include "host/window/field_link.h"

#include <QEvent>
#include <QPointer>

#include "host/window/dialogs.h"

namespace NolSchedCtls {

namespace {

class WheelFilter : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
        event->ignore();
        return true;
    }
};

}  // namespace

void LeaveWheelToPage(QWidget& widget) {
    if (widget.focusPolicy() == Qt::WheelFocus) widget.setFocusPolicy(Qt::StrongFocus);
    widget.installEventFilter(new WheelFilter(&widget));
}

FieldLink::FieldLink(ViewField& fieldA, QWidget& widgetA, std::function<void()> showA)
    : QObject(&widgetA), field(fieldA), widget(widgetA), show(std::move(showA)) {
    widget.setObjectName(QString::fromStdString(field.Name()));
    AddFocusPart(widget);
    LeaveWheelToPage(widget);
    Mirror();
}

FieldLink* FieldLink::Tie(ViewField& field, QWidget& widget, std::function<void()> show) {
    return new FieldLink(field, widget, std::move(show));
}

FieldLink& FieldLink::Of(const QWidget& widget) {
    return *widget.findChild<FieldLink*>(QString(), Qt::FindDirectChildrenOnly);
}

void FieldLink::Mirror() {
    widget.setVisible(field.Visible());
    widget.setEnabled(field.Enabled());
    if (show) show();
}

void FieldLink::Act(const std::function<void()>& act) {
    const QPointer<FieldLink> self(this);
    Succeeds(act);
    if (self) Succeeds([this] { Mirror(); });
}

bool FieldLink::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && field.IsUsable()) field.SetFocus();
    return QObject::eventFilter(watched, event);
}

}  // namespace NolSchedCtls
