// The days of a calendar widget as a screen reader hears them: whole dates, with what runs then.
#pragma once

#include <QAccessible>
#include <QTableView>

namespace NolSchedCtls {

// Of the view inside a calendar widget.
QAccessibleInterface* MakeCalendarInterface(QTableView& view);

}  // namespace NolSchedCtls
