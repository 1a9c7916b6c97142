// What the window says to its user and asks of them, apart from the tabs' own fields.
#pragma once

#include <QMessageBox>
#include <QStringList>
#include <functional>
#include <map>

#include "platform/services.h"

namespace NolSchedCtls {

// A box over the active window, with the stop sign or the exclamation mark of the message's flags. Returns
// when the user has closed it.
void ShowMessageBox(const Message& message);

// Carries out the act; false if it fails, which the process's message service then tells.
bool Succeeds(const std::function<void()>& act);

struct Question {
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton preferred;
    std::map<QMessageBox::StandardButton, QString> texts = {};  // of buttons that say something else
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
