// Rows that a store keeps beside the entries: a list of them, a line for another one, and what can be done.
#pragma once

#include <QDialog>

#include "host/entries/workspace.h"
#include "host/window/dialogs.h"

class QFormLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class QVBoxLayout;

namespace NolSchedCtls {

// Each act is done at once, or told and what was entered stays.
class RowsDialog : public QDialog {
    Q_OBJECT

  public:
    // Whether the store is another one than it was.
    bool HasChanged() const { return hasChanged; }

  protected:
    RowsDialog(QWidget* parent, Workspace& workspaceA, Dialogs dialogsA);

    // What the lists holds, from the store.
    virtual QList<QTreeWidgetItem*> Read() = 0;
    virtual void Add() = 0;
    virtual void Delete() = 0;

    QFormLayout& Form() { return *form; }
    // A button beside the list; one that needs a row rests while none is chosen.
    QPushButton* AddButton(const QString& text, bool needsRow, const std::function<void()>& act);
    // Comes last in the constructor of what is derived: the buttons below.
    void Finish(const QStringList& headings);
    // True if the act succeeded; the list then shows what there is now, with the row of that text chosen.
    bool Do(const std::function<void()>& act, const QString& chosen = {});
    bool Asks(const QString& title, const QString& question);
    void Tell(const QString& text);
    QList<QTreeWidgetItem*> Chosen() const;

    Workspace& workspace;
    QLineEdit* name = nullptr;
    QTreeWidget* rows = nullptr;

  private:
    void OrderByTab();
    void Fill(const QString& chosen);
    void FollowChoice();

    Dialogs dialogs;
    QVBoxLayout* side = nullptr;
    QFormLayout* form = nullptr;
    QLabel* told = nullptr;
    QList<QPushButton*> needingRow;
    bool hasChanged = false;
};

}  // namespace NolSchedCtls
