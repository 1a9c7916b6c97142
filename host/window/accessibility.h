// What a screen reader hears of the windows, beyond what their widgets tell by themselves; and "What's this".
#pragma once

#include <QAccessible>
#include <QWidget>

class QCalendarWidget;

namespace NolSchedCtls {

// Once, before the first widget is asked.
void InstallAccessibility();

// Before the widget is asked for the first time.
void SetRole(QWidget& widget, QAccessible::Role role);

// What the widget is called, what a screen reader adds to it, and what F1 and "What's this" tell. An empty
// name leaves the widget's own.
void Explain(QWidget& widget, const QString& name, const QString& purpose);

// Another description, as long as something else is to be said of the widget.
void Describe(QWidget& widget, const QString& description);

// Tells what F1 is asked for where the focus is: the purpose of the widget or of what holds it.
void TellPurposeAtF1(QWidget& window);

// While it lives, nothing that changes is told: for what only comes to be in several steps.
class Silence {
  public:
    Silence();
    ~Silence();
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
};

// Said once by a screen reader, wherever the focus is. The window of the widget must stay for a while.
void Announce(const QWidget& at, const QString& text);

// The calendar's own parts.
void NameParts(QCalendarWidget& calendar);

}  // namespace NolSchedCtls
