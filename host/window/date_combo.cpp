#include "host/window/date_combo.h"

#include <QCalendarWidget>
#include <QFocusEvent>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <algorithm>

#include "NolSchedCtls/toolkit/date_text.h"
#include "host/window/accessibility.h"
#include "host/window/field_link.h"
#include "host/window/qt_text.h"
#include "host/window/run_text.h"
#include "host/window/typed_line.h"

namespace NolSchedCtls {

namespace {

// A popup of its own, gone when it is closed.
QCalendarWidget* MakeCalendar(DateCombo& combo, const SSDateCombo& field) {
    auto* const popup = new QWidget(&combo, Qt::Popup);
    popup->setAttribute(Qt::WA_DeleteOnClose);
    auto* const calendar = new QCalendarWidget(popup);
    calendar->setLocale(combo.locale());
    calendar->setFirstDayOfWeek(FirstDayOfWeek());
    calendar->setDateRange(ToQDate(SSDateCombo::MinDate()), ToQDate(field.MaxDate()));
    calendar->setSelectedDate(ToQDate(field.DateValue()));
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setAccessibleName(combo.accessibleName());
    NameParts(*calendar);
    calendar->setMinimumSize(calendar->sizeHint() * 5 / 4);
    auto* const layout = new QVBoxLayout(popup);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(calendar);
    return calendar;
}

bool BeginsEdit(const QKeyEvent& key) {
    if ((key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
        return key.matches(QKeySequence::Paste) || key.matches(QKeySequence::Cut);
    if (key.key() == Qt::Key_F2 || key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete) return true;
    return !key.text().isEmpty() && key.text().at(0).isPrint();
}

}  // namespace

QDate ToQDate(DateTime date) {
    const DateTimeParts parts = SplitDateTime(date);
    return {parts.year, parts.month, parts.day};
}

DateTime FromQDate(QDate date) {
    DateTimeParts parts;
    parts.year = date.year();
    parts.month = date.month();
    parts.day = date.day();
    return ComposeDateTime(parts);
}

DateCombo::DateCombo(SSDateCombo& fieldA, QWidget* parent) : QComboBox(parent), field(fieldA) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setLineEdit(line = new TypedLine(field, this));
    setCompleter(nullptr);
    line->installEventFilter(this);
    link = FieldLink::Tie(field, *this, [this] { line->ShowField(); });
    focusLeft = field.Control().FocusLeft.Connect([this](const ViewField& left) {
        if (&left == &field) isEditing = false;
    });
}

// The longest day of all, so that the field keeps its width from one day to the next.
QSize DateCombo::sizeHint() const {
    static const QString longest = ToQt(DateText(ParseIso("2026-09-30"), longDateFormat));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize content(fontMetrics().horizontalAdvance(longest) + fontMetrics().averageCharWidth() * 2,
                        QComboBox::sizeHint().height());
    QSize hint = style()->sizeFromContents(QStyle::CT_ComboBox, &option, content, this);
    hint.setHeight(content.height());
    return hint;
}

void DateCombo::BeginEdit() {
    if (isEditing || !field.IsUsable()) return;
    isEditing = true;
    link->Act([this] { field.BeginEdit(); });
    line->selectAll();
}

void DateCombo::Commit() {
    if (isEditing) line->Commit();
}

// The focus may have gone to what is no field of the page, a button say, of which the field hears nothing.
void DateCombo::EndEdit() {
    Commit();
    if (isEditing) field.Control().LeaveFocus();
}

void DateCombo::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    if ((!popup || popup->isHidden()) && LeavesField(*event)) EndEdit();
}

// A page that goes to the back while its window is not the active one loses no focus.
void DateCombo::hideEvent(QHideEvent* event) {
    QComboBox::hideEvent(event);
    EndEdit();
}

void DateCombo::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) Commit();
    if (BeginsEdit(*event)) BeginEdit();
    QComboBox::keyPressEvent(event);
}

bool DateCombo::eventFilter(QObject* watched, QEvent* event) {
    if (watched == line && event->type() == QEvent::MouseButtonRelease && !isEditing) {
        const bool done = QComboBox::eventFilter(watched, event);
        BeginEdit();
        return done;
    }
    return QComboBox::eventFilter(watched, event);
}

// Below the field or else above it, flush with where it begins, and all of it on the screen.
QRect DateCombo::PlaceOfPopup(QSize size) const {
    const QRect free = screen()->availableGeometry();
    QRect place = QStyle::visualRect(layoutDirection(), rect(), {QPoint(0, height()), size});
    place.moveTopLeft(mapToGlobal(place.topLeft()));
    if (place.bottom() > free.bottom()) place.moveBottom(mapToGlobal(QPoint()).y() - 1);
    place.moveLeft(std::clamp(place.left(), free.left(), std::max(free.left(), free.right() - size.width())));
    place.moveTop(std::clamp(place.top(), free.top(), std::max(free.top(), free.bottom() - size.height())));
    return place;
}

void DateCombo::showPopup() {
    if (!field.IsUsable()) return;
    Commit();
    QCalendarWidget* const calendar = MakeCalendar(*this, field);
    popup = calendar->parentWidget();
    const auto pick = [this](QDate date) {
        if (popup->isHidden()) return;  // some styles tell a click both ways
        popup->close();
        link->Act([this, date] { field.PickDate(FromQDate(date)); });
    };
    connect(calendar, &QCalendarWidget::clicked, this, pick);
    connect(calendar, &QCalendarWidget::activated, this, pick);
    popup->setGeometry(PlaceOfPopup(popup->sizeHint()));
    popup->show();
    calendar->setFocus();
}

}  // namespace NolSchedCtls
