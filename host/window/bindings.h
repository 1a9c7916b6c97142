// The widgets of view fields, one function a kind.
#pragma once

#include <QWidget>

#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls {

// Makes the widget of the field's kind under the parent. It shows what the field holds, at once and
// whenever its FieldLink is asked to, and turns what a user does to it into the field's own acts. It may end
// before the field does, not the other way round.
QWidget* BindField(ViewField& field, QWidget* parent);

// Takes what was typed into the page so far, as the loss of the focus does.
void CommitEdits(QWidget& page);

// The widgets of a field that is a tab stop, in their order.
QList<QWidget*> TabStops(QWidget& bound);

}  // namespace NolSchedCtls
