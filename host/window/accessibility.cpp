#include "host/window/accessibility.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessibleWidget>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QWhatsThis>
#include <algorithm>
#include <array>

#include "host/window/calendar_interface.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

constexpr const char* roleProperty = "accessibleRole";

using Relations = QList<QPair<QAccessibleInterface*, QAccessible::Relation>>;

// Named by what it is for, with what is chosen as its value and text: Qt's own bears its choice for a name.
class ComboInterface : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit ComboInterface(QComboBox& comboA)
        : QAccessibleWidget(&comboA, QAccessible::ComboBox), combo(comboA) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? combo.currentText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const auto* const list = combo.findChild<QAbstractItemView*>();
        state.expandable = state.hasPopup = 1;
        state.expanded = list != nullptr && list->isVisible() ? 1 : 0;
        state.editable = combo.isEditable() ? 1 : 0;
        return state;
    }
    int childCount() const override { return (combo.isEditable() ? 2 : 1) + (Calendar() == nullptr ? 0 : 1); }
    QAccessibleInterface* child(int index) const override {
        if (index == 0) return QAccessible::queryAccessibleInterface(combo.view());
        if (index == 1) return QAccessible::queryAccessibleInterface(combo.lineEdit());
        return index == 2 ? QAccessible::queryAccessibleInterface(Calendar()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* sought) const override {
        if (sought == nullptr) return -1;
        const QObject* const places[] = {combo.view(), combo.lineEdit(), Calendar()};
        const auto* const found = std::ranges::find(places, sought->object());
        return found == std::end(places) ? -1 : static_cast<int>(found - places);
    }
    // Its label may stand in another widget than the box itself.
    Relations relations(QAccessible::Relation match) const override {
        Relations found = QAccessibleWidget::relations(match);
        if ((match & QAccessible::Label) == 0) return found;
        for (QLabel* label : combo.window()->findChildren<QLabel*>())
            if (label->buddy() == &combo && label->parent() != combo.parent())
                found.append({QAccessible::queryAccessibleInterface(label), QAccessible::Label});
        return found;
    }
    // The line of an editable one has a text of its own.
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type != QAccessible::TextInterface) return QAccessibleWidget::interface_cast(type);
        return combo.isEditable() ? nullptr : static_cast<QAccessibleTextInterface*>(this);
    }
    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        action == showMenuAction() ? combo.showPopup() : QAccessibleWidget::doAction(action);
    }

    int characterCount() const override { return static_cast<int>(combo.currentText().size()); }
    QString text(int start, int end) const override { return combo.currentText().mid(start, end - start); }
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int /*position*/) override {}
    int selectionCount() const override { return 0; }
    void selection(int /*index*/, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int /*start*/, int /*end*/) override {}
    void removeSelection(int /*index*/) override {}
    void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}
    QRect characterRect(int /*offset*/) const override { return {}; }
    int offsetAtPoint(const QPoint& /*point*/) const override { return -1; }
    void scrollToSubstring(int /*start*/, int /*end*/) override {}
    QString attributes(int /*offset*/, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }

  private:
    // While it is open.
    QCalendarWidget* Calendar() const { return combo.findChild<QCalendarWidget*>(); }

    QComboBox& combo;
};

QAccessibleInterface* MakeInterface(const QString& className, QObject* object) {
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) return nullptr;
    const QVariant role = widget->property(roleProperty);
    if (role.isValid()) return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
    if (className == u"QCalendarView"_s) return MakeCalendarInterface(*static_cast<QTableView*>(object));
    if (className == u"QComboBox"_s) return new ComboInterface(*static_cast<QComboBox*>(object));
    return nullptr;
}

// Views tell of their current cell as if it had the focus, while another window is in use.
bool IsTrue(const QAccessibleEvent& event) {
    constexpr std::array kinds = {QAccessible::Focus, QAccessible::Selection, QAccessible::SelectionAdd,
                                  QAccessible::SelectionRemove, QAccessible::SelectionWithin};
    const auto* const view = qobject_cast<QAbstractItemView*>(event.object());
    return view == nullptr || view->hasFocus() || std::ranges::find(kinds, event.type()) == kinds.end();
}

int silences = 0;
QAccessible::UpdateHandler nextHandler = nullptr;

void Pass(QAccessibleEvent* event) {
    if (silences > 0 || !IsTrue(*event)) return;
    if (nextHandler != nullptr) return nextHandler(event);
    QAccessible::installUpdateHandler(nullptr);  // the platform's own way
    QAccessible::updateAccessibility(event);
    QAccessible::installUpdateHandler(Pass);
}

}  // namespace

void InstallAccessibility() {
    QAccessible::installFactory(MakeInterface);
    nextHandler = QAccessible::installUpdateHandler(Pass);
}

Silence::Silence() { ++silences; }

Silence::~Silence() { --silences; }

void SetRole(QWidget& widget, QAccessible::Role role) { widget.setProperty(roleProperty, int{role}); }

void Explain(QWidget& widget, const QString& name, const QString& purpose) {
    if (!name.isEmpty()) widget.setAccessibleName(name);
    widget.setWhatsThis(purpose);
    Describe(widget, purpose);
    const bool hasLine =
        qobject_cast<QComboBox*>(&widget) != nullptr || qobject_cast<QAbstractSpinBox*>(&widget) != nullptr;
    auto* const line = hasLine ? widget.findChild<QLineEdit*>() : nullptr;
    if (line != nullptr) line->setAccessibleName(widget.accessibleName());
}

void Describe(QWidget& widget, const QString& description) {
    if (widget.accessibleDescription() != description) widget.setAccessibleDescription(description);
}

void TellPurposeAtF1(QWidget& window) {
    const auto tell = [&window] {
        QWidget* at = window.focusWidget();
        while (at != nullptr && at->whatsThis().isEmpty()) at = at->isWindow() ? nullptr : at->parentWidget();
        if (at == nullptr) return;
        QWhatsThis::showText(at->mapToGlobal(QPoint(at->width() / 2, at->height())), at->whatsThis(), at);
        Announce(window, at->whatsThis());
    };
    QObject::connect(new QShortcut(QKeySequence::HelpContents, &window), &QShortcut::activated, &window,
                     tell);
}

// A notification is spoken when it appears, so a part of the window that nobody sees appears with the text.
void Announce(const QWidget& at, const QString& text) {
    static const QString name = u"announcement"_s;
    QWidget* const window = at.window();
    auto* notification = window->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
    if (notification == nullptr) {
        notification = new QWidget(window);
        notification->setObjectName(name);
        notification->resize(0, 0);
        SetRole(*notification, QAccessible::Notification);
    }
    notification->hide();
    notification->setAccessibleName(text);
    notification->show();
    QAccessibleEvent alert(notification, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NameParts(QCalendarWidget& calendar) {
    const auto name = [&calendar](const QString& part, const QString& text) {
        if (auto* const widget = calendar.findChild<QWidget*>(part)) widget->setAccessibleName(text);
    };
    name(u"qt_calendar_prevmonth"_s, u"Previous month"_s);
    name(u"qt_calendar_nextmonth"_s, u"Next month"_s);
    name(u"qt_calendar_yearedit"_s, u"Year"_s);
    name(u"qt_calendar_calendarview"_s, calendar.accessibleName());
}

}  // namespace NolSchedCtls
