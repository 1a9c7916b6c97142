#include "host/window/dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputDialog>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

QMessageBox::Icon IconOf(int flags) {
    if ((flags & MAppConstants::exclamationMark) == MAppConstants::exclamationMark)
        return QMessageBox::Warning;
    return (flags & MAppConstants::stopSign) != 0 ? QMessageBox::Critical : QMessageBox::Information;
}

QMessageBox::StandardButton Ask(QWidget* parent, const Question& question) {
    QMessageBox box(QMessageBox::Question, question.title, question.text, question.buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(question.preferred);
    for (const auto& [button, text] : question.texts)
        if (auto* const shown = box.button(button)) shown->setText(text);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QString Choose(QWidget* parent, const QString& title, const QString& label, const QStringList& offered,
               int current) {
    bool chosen = false;
    const QString text = QInputDialog::getItem(parent, title, u"<p>%1</p>"_s.arg(label.toHtmlEscaped()),
                                               offered, current, false, &chosen);
    return chosen ? text : QString();
}

}  // namespace

void ShowMessageBox(const Message& message) {
    QMessageBox box(IconOf(message.flags), ToQt(message.title), ToQt(message.text).remove(u'\r'),
                    QMessageBox::Ok, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

bool Succeeds(const std::function<void()>& act) {
    try {
        act();
        return true;
    } catch (const std::exception& error) {
        MessageService().Show(error.what(), MAppConstants::stopSign, "Schedule Entries", 0, 0);
        return false;
    }
}

Dialogs UserDialogs() { return {Ask, Choose}; }

}  // namespace NolSchedCtls
