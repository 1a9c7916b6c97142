#include "host/window/connect_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <array>

#include "host/window/qt_text.h"
#include "platform/schema.h"

namespace NolSchedCtls {

struct ConnectDialog::Part {
    const char* label;
    const char* orElse;  // what counts where the line is empty
    std::string ServerAddress::*text;

    static constexpr std::size_t port = 1, password = 4;
    static const std::array<Part, 5> all;
};

constexpr std::array<ConnectDialog::Part, 5> ConnectDialog::Part::all = {{
    {"&Host:", "this machine", &ServerAddress::host},
    {"P&ort:", "5432", &ServerAddress::port},
    {"&Database:", "named as the user", &ServerAddress::database},
    {"&User:", "named as on this machine", &ServerAddress::user},
    {"&Password:", "", &ServerAddress::password},
}};

ConnectDialog::ConnectDialog(QWidget* parent) : QDialog(parent) {
    setWindowTitle(u"Connect to a Server"_s);
    auto* const form = new QFormLayout(this);
    MakeLines(*form);
    told = new QLabel(this);
    told->setTextFormat(Qt::PlainText);
    told->setWordWrap(true);
    told->setMinimumHeight(told->fontMetrics().lineSpacing() * 6);
    told->setMinimumWidth(told->fontMetrics().averageCharWidth() * 40);
    told->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    form->addRow(told);
    MakeButtons();
}

void ConnectDialog::MakeLines(QFormLayout& form) {
    for (const Part& part : Part::all) {
        auto* const line = new QLineEdit(this);
        line->setPlaceholderText(QString::fromUtf8(part.orElse));
        form.addRow(QString::fromUtf8(part.label), line);
        lines.append(line);
    }
    // One for each host, if there are several.
    lines[Part::port]->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9,]*"_s), this));
    lines[Part::password]->setEchoMode(QLineEdit::Password);
}

void ConnectDialog::MakeButtons() {
    auto* const box = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    auto* const connecting = box->addButton(u"&Connect"_s, QDialogButtonBox::ActionRole);
    auto* const test = box->addButton(u"&Test"_s, QDialogButtonBox::ActionRole);
    connecting->setDefault(true);
    buttons = {connecting, test};
    connect(connecting, &QPushButton::clicked, this, [this] { Ask(true); });
    connect(test, &QPushButton::clicked, this, [this] { Ask(false); });
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    static_cast<QFormLayout*>(layout())->addRow(box);
}

void ConnectDialog::SetServer(const ServerAddress& serverA) {
    server = serverA;
    for (std::size_t i = 0; i < Part::all.size(); ++i)
        lines[static_cast<int>(i)]->setText(ToQt(server.*Part::all[i].text));
    asked.clear();
    told->setText(job.IsRunning() ? u"The server that was asked last has not answered yet."_s : QString());
    lines[server.host.empty() ? 0 : Part::password]->setFocus();
}

std::string ConnectDialog::Address() const {
    ServerAddress given = server;
    for (std::size_t i = 0; i < Part::all.size(); ++i)
        given.*Part::all[i].text = lines[static_cast<int>(i)]->text().toStdString();
    return given.Text();
}

// A server that does not answer at all is not waited for as long as the system would.
std::string ConnectDialog::Impatient(const std::string& address) {
    ServerAddress asked = ReadServerAddress(address);
    asked.parameters.insert(asked.parameters.begin(), {"connect_timeout", "10"});  // the last one counts
    return asked.Text();
}

ConnectDialog::Answer ConnectDialog::AnswerOf(const std::string& address) {
    try {
        PrepareTables(*OpenDatabase(Impatient(address)), MissingStore::Refuse);
        return {u"It works: the server answers, and there is a store."_s, true};
    } catch (const StoreError& error) {
        if (error.kind != StoreError::Kind::Missing) return {ToVisible(error.what())};
        return {u"The server answers. There is no store in this database yet; Connect offers to make one."_s,
                true};
    } catch (const std::exception& error) {
        return {ToVisible(error.what())};
    }
}

void ConnectDialog::Ask(bool accepts) {
    told->setText(u"The server is asked..."_s);
    for (auto* const button : buttons) button->setEnabled(false);
    asked = Address();
    const auto ask = [address = asked](const std::stop_token&) { return AnswerOf(address); };
    job.Start(ask, [this, accepts, address = asked](const Answer& answer) {
        for (auto* const button : buttons) button->setEnabled(true);
        told->setText(asked == address ? answer.text : QString());
        if (accepts && answer.isReached && asked == address && isVisible()) accept();
    });
}

}  // namespace NolSchedCtls
