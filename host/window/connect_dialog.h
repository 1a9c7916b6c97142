// The store on a server, given part by part.
#pragma once

#include <QDialog>

#include "host/window/background_job.h"
#include "platform/server_address.h"

class QFormLayout;
class QLabel;
class QLineEdit;

namespace NolSchedCtls {

// Accepted once the server has answered. The password is kept nowhere but in the dialog, until it is shown
// again. The window stays alive while the server is asked.
class ConnectDialog : public QDialog {
    Q_OBJECT

  public:
    explicit ConnectDialog(QWidget* parent);

    // With what is known already.
    void SetServer(const ServerAddress& serverA);
    // As OpenDatabase takes it, with the password.
    std::string Address() const;

  private:
    struct Answer {
        QString text;
        bool isReached = false;
    };
    struct Part;

    void MakeLines(QFormLayout& form);
    void MakeButtons();
    void Ask(bool accepts);
    static std::string Impatient(const std::string& address);
    static Answer AnswerOf(const std::string& address);

    ServerAddress server;  // what the lines do not show
    QList<QLineEdit*> lines;
    QLabel* told = nullptr;
    std::string asked;        // the address of the server, unless the dialog was closed since
    QList<QWidget*> buttons;  // rest while the server is asked
    BackgroundJob job;
};

}  // namespace NolSchedCtls
