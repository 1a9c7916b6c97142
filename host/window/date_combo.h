// The widget of a date field: a line to type into, and a calendar to pick from.
#pragma once

#include <QComboBox>
#include <QDate>
#include <QPointer>

#include "NolSchedCtls/toolkit/ss_date_combo.h"

namespace NolSchedCtls {

class FieldLink;
class TypedLine;

QDate ToQDate(DateTime date);
DateTime FromQDate(QDate date);

// Shows the field's text. A click or a key begins the edit; Enter and the loss of the focus end it, and what
// was typed is taken if the field offers it. A text that it does not offer stays, marked.
class DateCombo : public QComboBox {
    Q_OBJECT

  public:
    DateCombo(SSDateCombo& fieldA, QWidget* parent);

    // Takes what was typed so far, as the loss of the focus does.
    void Commit();
    void showPopup() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void BeginEdit();
    void EndEdit();
    QRect PlaceOfPopup(QSize size) const;

    SSDateCombo& field;
    TypedLine* line = nullptr;
    FieldLink* link = nullptr;
    bool isEditing = false;
    QPointer<QWidget> popup;  // while the calendar is open
    ScopedConnection focusLeft;
};

}  // namespace NolSchedCtls
