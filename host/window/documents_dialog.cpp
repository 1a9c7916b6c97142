#include "host/window/documents_dialog.h"

#include <QLineEdit>
#include <QTreeWidget>

#include "host/entries/document_acts.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

constexpr std::size_t mostNamed = 12;

QString Listed(const std::vector<std::string>& users) {
    QStringList lines;
    for (const std::string& user : users) {
        if (static_cast<std::size_t>(lines.size()) == mostNamed) break;
        lines.append(ToVisible(user));
    }
    if (users.size() > mostNamed)
        lines.append(u"and %1 more"_s.arg(QLocale().toString(static_cast<int>(users.size() - mostNamed))));
    return lines.join(u'\n');
}

}  // namespace

DocumentsDialog::DocumentsDialog(QWidget* parent, Workspace& workspaceA, Dialogs dialogsA,
                                 CaddisDocumentType typeA, QString wordA)
    : RowsDialog(parent, workspaceA, std::move(dialogsA)), type(std::move(typeA)), word(std::move(wordA)) {
    const bool isGroup = word == u"study group"_s;
    setWindowTitle(isGroup ? u"Study Groups"_s : u"Scenarios"_s);
    AddButton(u"&Rename"_s, true, [this] { Rename(); });
    connect(rows, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item != nullptr) name->setText(item->data(0, Qt::UserRole).toString());
    });
    Finish({u"Name"_s});
}

QList<QTreeWidgetItem*> DocumentsDialog::Read() {
    QList<QTreeWidgetItem*> items;
    for (const auto& document : workspace.Documents().DocumentsOfType(type)) {
        auto* const item = new QTreeWidgetItem({ToVisible(document->Name)});
        item->setData(0, Qt::UserRole, ToQt(document->Name));
        items.append(item);
    }
    return items;
}

void DocumentsDialog::Add() {
    const std::string added = name->text().toStdString();
    if (Do([&] { AddDocument(workspace, type, added); }, ToVisible(added))) name->selectAll();
}

void DocumentsDialog::Rename() {
    const std::string given = name->text().toStdString();
    const std::string former = Chosen().front()->data(0, Qt::UserRole).toString().toStdString();
    Do([&] { RenameDocument(workspace, type, former, given); }, ToVisible(given));
}

void DocumentsDialog::Delete() {
    const QString document = Chosen().front()->data(0, Qt::UserRole).toString();
    const QString shown = Chosen().front()->text(0);
    if (!Asks(u"Delete"_s, u"Do you want to delete the %1 \"%2\"?"_s.arg(word, shown))) return;
    QString kept;
    const auto remove = [&] {
        try {
            DeleteDocument(workspace, type, document.toStdString());
        } catch (const InUseError& error) {
            const QString question =
                u"The %1 \"%2\" is used by these entries, which would lose it:\n\n%3\n\nDelete it nevertheless?"_s;
            if (!Asks(u"Delete"_s, question.arg(word, shown, Listed(error.users)))) return void(kept = shown);
            DeleteDocument(workspace, type, document.toStdString(), InUse::Deleted);
        }
    };
    if (Do(remove, kept) && kept.isEmpty()) name->clear();
}

}  // namespace NolSchedCtls
