#include "host/window/rows_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "host/window/appearance.h"
#include "host/window/qt_text.h"

namespace NolSchedCtls {

RowsDialog::RowsDialog(QWidget* parent, Workspace& workspaceA, Dialogs dialogsA)
    : QDialog(parent), workspace(workspaceA), dialogs(std::move(dialogsA)) {
    auto* const column = new QVBoxLayout(this);
    auto* const row = new QHBoxLayout;
    auto* const left = new QVBoxLayout;
    rows = new QTreeWidget(this);
    rows->setRootIsDecorated(false);
    rows->setAlternatingRowColors(true);
    left->addWidget(rows, 1);
    form = new QFormLayout;
    left->addLayout(form);
    row->addLayout(left, 1);
    side = new QVBoxLayout;
    row->addLayout(side);
    column->addLayout(row, 1);
    name = new QLineEdit(this);
    told = new QLabel(this);
    told->setTextFormat(Qt::PlainText);
    connect(rows, &QTreeWidget::itemSelectionChanged, this, &RowsDialog::FollowChoice);
    auto* const key = new QShortcut(QKeySequence::Delete, rows);
    key->setContext(Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, [this] {
        if (!Chosen().isEmpty()) Delete();
    });
    AddButton(u"&Add"_s, false, [this] { Add(); })->setDefault(true);
    AddButton(u"De&lete"_s, true, [this] { Delete(); });
}

QPushButton* RowsDialog::AddButton(const QString& text, bool needsRow, const std::function<void()>& act) {
    auto* const button = new QPushButton(text, this);
    button->setAutoDefault(false);
    if (needsRow) needingRow.append(button);
    side->addWidget(button);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

void RowsDialog::Finish(const QStringList& headings) {
    form->addRow(u"&Name:"_s, name);
    OrderByTab();
    side->addStretch();
    rows->setHeaderLabels(headings);
    rows->setAccessibleName(windowTitle());
    rows->setHeaderHidden(headings.size() == 1);
    auto* const box = new QDialogButtonBox(QDialogButtonBox::Close, this);
    box->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(box, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(told);
    layout()->addWidget(box);
    FitToScreen(*this, QSize(fontMetrics().averageCharWidth() * 70, fontMetrics().lineSpacing() * 26));
    Fill({});
    name->setFocus();
}

// The list, what is entered, and then what can be done with it.
void RowsDialog::OrderByTab() {
    QWidget* last = rows;
    const auto follow = [&last](QWidget* next) {
        setTabOrder(last, next);
        last = next;
    };
    for (int row = 0; row < form->rowCount(); ++row)
        follow(form->itemAt(row, QFormLayout::FieldRole)->widget());
    for (int place = 0; place < side->count(); ++place) follow(side->itemAt(place)->widget());
}

void RowsDialog::Fill(const QString& chosen) {
    const QList<QTreeWidgetItem*> items = Read();
    rows->clear();
    rows->addTopLevelItems(items);
    rows->resizeColumnToContents(0);
    for (QTreeWidgetItem* const item : rows->findItems(chosen, Qt::MatchExactly)) rows->setCurrentItem(item);
    FollowChoice();
}

void RowsDialog::FollowChoice() {
    for (auto* const button : needingRow) button->setEnabled(!Chosen().isEmpty());
}

QList<QTreeWidgetItem*> RowsDialog::Chosen() const { return rows->selectedItems(); }

bool RowsDialog::Do(const std::function<void()>& act, const QString& chosen) {
    told->clear();
    if (!Succeeds(act)) return false;
    hasChanged = true;
    return Succeeds([&] { Fill(chosen); });
}

bool RowsDialog::Asks(const QString& title, const QString& question) {
    using Box = QMessageBox;
    return dialogs.ask(this, {title, question, Box::Yes | Box::Cancel, Box::Cancel}) == Box::Yes;
}

void RowsDialog::Tell(const QString& text) { told->setText(text); }

}  // namespace NolSchedCtls
