#include "host/window/field_link.h"

#include <QEvent>
#include <QPointer>

#include "host/window/dialogs.h"

namespace NolSchedCtls {

FieldLink::FieldLink(ViewField& fieldA, QWidget& widgetA, std::function<void()> showA)
    : QObject(&widgetA), field(fieldA), widget(widgetA), show(std::move(showA)) {
    widget.setObjectName(QString::fromStdString(field.Name()));
    AddFocusPart(widget);
    if (widget.focusPolicy() == Qt::WheelFocus) widget.setFocusPolicy(Qt::StrongFocus);
    refresh = field.Refresh.Connect([this] { Mirror(); });
    Mirror();
}

FieldLink* FieldLink::Tie(ViewField& field, QWidget& widget, std::function<void()> show) {
    return new FieldLink(field, widget, std::move(show));
}

void FieldLink::Mirror() {
    widget.setVisible(field.Visible());
    widget.setEnabled(field.Enabled());
    if (show) show();
}

void FieldLink::Act(const std::function<void()>& act) {
    const QPointer<FieldLink> self(this);
    Succeeds(act);
    if (self) Mirror();
}

bool FieldLink::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && field.IsUsable()) field.SetFocus();
    if (event->type() == QEvent::Wheel && !widget.hasFocus()) {
        event->ignore();  // the wheel was meant for the page
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace NolSchedCtls
