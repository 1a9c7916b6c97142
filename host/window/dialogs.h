// What the window says to its user and asks of them, apart from the tabs' own fields.
#pragma once

#include <QMessageBox>
#include <QStringList>
#include <exception>
#include <functional>

#include "platform/services.h"

namespace NolSchedCtls {

// A box over the active window, with the stop sign or the exclamation mark of the message's flags. Returns
// when the user has closed it.
void ShowMessageBox(const Message& message);

// Tells a failure by the process's message service.
void TellFailure(const std::exception& error);

struct Question {
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton preferred;
};

// Replaced where no user can answer.
struct Dialogs {
    std::function<QMessageBox::StandardButton(QWidget* parent, const Question&)> ask;
    // One of the texts, or nothing.
    std::function<QString(QWidget* parent, const QString& title, const QString& label,
                          const QStringList& offered, int current)>
        choose;
};

Dialogs UserDialogs();

}  // namespace NolSchedCtls
