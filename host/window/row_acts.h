// What is done to the chosen entries as they are, without an editor.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "host/entries/entry_acts.h"
#include "host/window/dialogs.h"
#include "host/window/entry_table.h"

namespace NolSchedCtls {

// Each act is one question at most and one transaction: all of the entries or none. A failure is told, and
// names the entry.
class RowActs : public QObject {
    Q_OBJECT

  public:
    // Lives no longer than workspace and table.
    RowActs(Workspace& workspaceA, Dialogs dialogsA, EntryTable& tableA);

    void Delete();
    // Brings back what the last delete of this window has taken and no undo has brought back.
    void UndoDelete();
    bool CanUndoDelete() const { return !deletions.empty(); }
    void Duplicate();
    void Pause() { SetAllActive(false); }
    void Activate() { SetAllActive(true); }
    void ChangeGroup();
    void ShiftStart();
    // As a table of texts.
    void Copy() const;

    // In the middle of an act's transaction: the store is not to be asked for anything else.
    bool IsBusy() const { return isBusy; }
    // Whether an editor shows the entry. May be empty.
    std::function<bool(std::int32_t id)> isOpen;
    std::function<bool(std::int32_t id)> isUnsaved;  // and has changes that only its editor knows

  Q_SIGNALS:
    // May have changed: also where the store refused. What was done, if it was, in a few words.
    void Changed(const std::vector<std::int32_t>& ids, const QString& done);

  private:
    using Entries = std::vector<NamedEntry>;
    struct Deletion {
        Entries entries;
        std::vector<KeptEntry> kept;  // of each
    };

    Entries Chosen() const;
    QString DeleteText(const Entries& entries) const;
    bool AgreesTo(const QString& title, const QString& text, QMessageBox::StandardButton preferred) const;
    void Do(const Entries& entries, const QString& done, const std::function<void()>& work);
    void DoToEach(const Entries& entries, const QString& done, const std::function<void(std::int32_t)>& act);
    void All(const Entries& entries, const std::function<void(std::int32_t)>& act);
    void SetAllActive(bool isActive);
    QWidget* Window() const { return table.window(); }

    Workspace& workspace;
    Dialogs dialogs;
    EntryTable& table;
    std::vector<Deletion> deletions;
    bool isBusy = false;
};

}  // namespace NolSchedCtls
