#include "host/window/typed_line.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPointer>

#include "NolSchedCtls/toolkit/date_text.h"
#include "host/window/accessibility.h"
#include "host/window/dialogs.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

QColor Mixed(const QColor& color, const QColor& ground) {
    const auto mixed = [](int part, int groundPart) { return (part + 5 * groundPart) / 6; };
    return {mixed(color.red(), ground.red()), mixed(color.green(), ground.green()),
            mixed(color.blue(), ground.blue())};
}

QPalette RefusedPalette(QPalette palette) {
    const QColor warning = palette.color(QPalette::Active, QPalette::BrightText);
    palette.setColor(QPalette::Text, warning);
    palette.setColor(QPalette::Base, Mixed(warning, palette.color(QPalette::Active, QPalette::Base)));
    return palette;
}

}  // namespace

bool LeavesField(const QFocusEvent& event) {
    const Qt::FocusReason reason = event.reason();
    return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

TypedLine::TypedLine(TypedField& fieldA, QWidget* parent) : QLineEdit(parent), field(fieldA) {}

void TypedLine::ShowField() {
    const QString shown = ToQt(field.Text());
    if (text() != shown) setText(shown);
    setModified(false);
    const QString refusal = ToQt(field.Refusal());
    setPalette(refusal.isEmpty() ? QPalette() : RefusedPalette(QApplication::palette()));
    setToolTip(refusal.isEmpty() ? QString() : u"<p>%1</p>"_s.arg(refusal.toHtmlEscaped()));
    QWidget& heard = focusProxy() == nullptr ? *this : *focusProxy();  // what a screen reader asks
    Describe(heard, refusal.isEmpty() ? heard.whatsThis() : refusal);
    Q_EMIT Shown();
}

void TypedLine::Commit() {
    if (!isModified()) return;
    const QPointer<TypedLine> self(this);
    Succeeds([&] {
        if (!field.TypeText(text().toStdString())) QApplication::beep();
    });
    if (!self) return;
    ShowField();
    if (field.Refusal().empty()) return;
    if (hasFocus()) selectAll();
    Announce(*this, ToQt(field.Refusal()));
}

bool TypedLine::IsUntaken() const { return isModified() || (!field.Refusal().empty() && field.IsUsable()); }

// A mouse that gives the focus selects at its release: the press sets the cursor.
void TimeLine::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!LeavesField(*event)) return;
    selectAll();
    selectsAtRelease = event->reason() == Qt::MouseFocusReason;
}

void TimeLine::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (std::exchange(selectsAtRelease, false) && !hasSelectedText()) selectAll();
}

void TimeLine::mouseDoubleClickEvent(QMouseEvent* /*event*/) { selectAll(); }

void TimeLine::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (LeavesField(*event)) Commit();
}

void TimeLine::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    Commit();
}

// A digit behind a whole time that it cannot lengthen begins the next time.
bool TimeLine::BeginsAnew(const QKeyEvent& key) const {
    constexpr qsizetype shortestWhole = 4;  // "9:05"
    const QString whole = text();
    return key.text().size() == 1 && key.text().at(0).isDigit() && !hasSelectedText() &&
           cursorPosition() == whole.size() && whole.size() >= shortestWhole &&
           ReadTimeText(whole.toStdString()) && !ReadTimeText((whole + key.text()).toStdString());
}

void TimeLine::Step(int steps) {
    constexpr int minutesInDay = 24 * 60;
    selectsAtRelease = false;  // an arrow was pressed, not the line
    const QPointer<TimeLine> self(this);
    const int cursor = cursorPosition();
    const bool isMinute = !hasSelectedText() && cursor > text().indexOf(u':');
    Commit();
    if (!self || !field.Refusal().empty()) return;
    const int moved = field.Hour() * 60 + field.Minute() + steps * (isMinute ? 1 : 60);
    const int stepped = (moved % minutesInDay + minutesInDay) % minutesInDay;
    Succeeds([&] { field.PickTime(stepped / 60, stepped % 60); });
    if (!self) return;
    isMinute ? setCursorPosition(cursor) : selectAll();
}

void TimeLine::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) Commit();
    if (BeginsAnew(*event)) selectAll();
    QLineEdit::keyPressEvent(event);
}

}  // namespace NolSchedCtls
