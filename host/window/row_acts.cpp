#include "host/window/row_acts.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLocale>
#include <QProgressDialog>
#include <QScopeGuard>
#include <algorithm>
#include <functional>
#include <utility>

#include "host/window/group_choice.h"
#include "host/window/qt_text.h"
#include "host/window/shift_box.h"

namespace NolSchedCtls {

namespace {

constexpr int shownEvery = 30;  // milliseconds

// "the entry "Nightly"", "12 entries".
QString TextOf(const std::vector<NamedEntry>& entries) {
    constexpr qsizetype mostLetters = 60;
    if (entries.size() != 1) return u"%1 entries"_s.arg(QLocale().toString(entries.size()));
    const QString name = ToVisible(entries.front().name);
    return u"the entry \"%1\""_s.arg(name.size() > mostLetters ? name.left(mostLetters) + u"..."_s : name);
}

std::vector<std::int32_t> IdsOf(const std::vector<NamedEntry>& entries) {
    std::vector<std::int32_t> ids(entries.size());
    std::transform(entries.begin(), entries.end(), ids.begin(), std::mem_fn(&NamedEntry::id));
    return ids;
}

}  // namespace

RowActs::RowActs(Workspace& workspaceA, Dialogs dialogsA, EntryTable& tableA)
    : workspace(workspaceA), dialogs(std::move(dialogsA)), table(tableA) {}

RowActs::Entries RowActs::Chosen() const {
    Entries entries;
    for (const auto& row : table.ChosenRows()) {
        if (!std::in_range<std::int32_t>(row->id))
            throw RequestError("The entry " + std::to_string(row->id) + " has an Id that no entry can have.");
        entries.push_back({static_cast<std::int32_t>(row->id), row->name.toStdString()});
    }
    return entries;
}

bool RowActs::AgreesTo(const QString& title, const QString& text,
                       QMessageBox::StandardButton preferred) const {
    using Box = QMessageBox;
    return dialogs.ask(Window(), {title, text, Box::Yes | Box::Cancel, preferred}) == Box::Yes;
}

void RowActs::Do(const Entries& entries, const QString& done, const std::function<void()>& work) {
    bool isStoreAway = false;  // to read the rows again would only be to wait again
    const bool isDone = Succeeds([&] {
        try {
            work();
        } catch (const StoreError&) {
            isStoreAway = true;
            throw;
        }
    });
    if (!isStoreAway) Q_EMIT Changed(IdsOf(entries), isDone ? done.arg(TextOf(entries)) : QString());
}

void RowActs::DoToEach(const Entries& entries, const QString& done,
                       const std::function<void(std::int32_t)>& act) {
    for (const NamedEntry& entry : entries)
        if (isUnsaved && isUnsaved(entry.id))
            throw RequestError("The entry " + Quoted(entry.name) +
                               " is open with unsaved changes; save or close it first.");
    Do(entries, done, [&] { All(entries, act); });
}

// After half a second a box tells how far it is, and offers to give up.
void RowActs::All(const Entries& entries, const std::function<void(std::int32_t)>& act) {
    QProgressDialog box(u"%1 entries"_s.arg(QLocale().toString(entries.size())), u"&Give Up"_s, 0,
                        static_cast<int>(entries.size()), Window());
    box.setWindowTitle(u"Schedule Entries"_s);
    box.setWindowModality(Qt::ApplicationModal);
    box.setMinimumDuration(500);
    isBusy = true;
    const auto ended = qScopeGuard([this] { isBusy = false; });
    QElapsedTimer sinceShown;
    DoToAll(workspace, entries, act, [&](int count) {
        if (sinceShown.isValid() && sinceShown.elapsed() < shownEvery) return true;
        sinceShown.start();
        box.setValue(count - 1);  // the last one would hide it
        return !box.wasCanceled();
    });
}

QString RowActs::DeleteText(const Entries& entries) const {
    const auto open = std::count_if(entries.begin(), entries.end(),
                                    [this](const NamedEntry& entry) { return isOpen && isOpen(entry.id); });
    QString text = u"Do you want to delete %1?"_s.arg(TextOf(entries));
    if (open == 0) return text;
    if (entries.size() == 1)
        return text + (isUnsaved(entries.front().id) ? u" It is open in an editor, with unsaved changes."_s
                                                     : u" It is open in an editor."_s);
    return text + (open == 1 ? u" One of them is open in an editor."_s
                             : u" %1 of them are open in editors."_s.arg(QLocale().toString(qint64{open})));
}

void RowActs::Delete() {
    Succeeds([this] {
        const Entries entries = Chosen();
        if (entries.empty() || !AgreesTo(u"Delete"_s, DeleteText(entries), QMessageBox::Cancel)) return;
        Deletion deletion{entries, {}};
        const auto act = [&](std::int32_t id) { deletion.kept.push_back(workspace.Entries().Delete(id)); };
        Do(entries, u"Deleted %1; Ctrl+Z brings back what is gone."_s, [&] {
            All(entries, act);
            deletions.push_back(std::move(deletion));
        });
    });
}

void RowActs::UndoDelete() {
    if (deletions.empty()) return;
    const Deletion deletion = deletions.back();
    auto next = deletion.kept.begin();
    const auto act = [&](std::int32_t) { workspace.Entries().Restore(*next++); };
    const std::size_t former = deletions.size();
    Do(deletion.entries, u"Brought back %1."_s, [&] {
        All(deletion.entries, act);
        deletions.pop_back();
    });
    // One that cannot be undone does not keep back those before it.
    if (deletions.size() == former) std::rotate(deletions.begin(), deletions.end() - 1, deletions.end());
}

void RowActs::Duplicate() {
    Succeeds([this] {
        const Entries entries = Chosen();
        const QString text = u"Do you want to duplicate %1?"_s.arg(TextOf(entries));
        if (entries.empty() || !AgreesTo(u"Duplicate"_s, text, QMessageBox::Yes)) return;
        std::vector<std::int32_t> copies;
        const auto act = [&](std::int32_t id) { copies.push_back(NolSchedCtls::Duplicate(workspace, id)); };
        if (Succeeds([&] { All(entries, act); }))
            Q_EMIT Changed(copies, u"Duplicated %1."_s.arg(TextOf(entries)));
    });
}

void RowActs::SetAllActive(bool isActive) {
    Succeeds([this, isActive] {
        const Entries entries = Chosen();
        const QString title = isActive ? u"Activate"_s : u"Pause"_s;
        const QString text = u"Do you want to %1 %2?"_s.arg(title.toLower(), TextOf(entries));
        if (entries.empty() || (entries.size() > 1 && !AgreesTo(title, text, QMessageBox::Yes))) return;
        const auto act = [&](std::int32_t id) { SetActive(workspace, id, isActive); };
        DoToEach(entries, isActive ? u"Activated %1."_s : u"Paused %1."_s, act);
    });
}

void RowActs::ChangeGroup() {
    Succeeds([this] {
        const Entries entries = Chosen();
        if (entries.empty()) return;
        const auto group =
            ChooseGroup(Window(), dialogs, u"Change Group"_s, u"Study group of %1:"_s.arg(TextOf(entries)),
                        table.ChosenRows().front()->group.Text());
        if (!group) return;
        DoToEach(entries, u"Changed the group of %1."_s,
                 [&](std::int32_t id) { SetGroup(workspace, id, group->name); });
    });
}

void RowActs::ShiftStart() {
    Succeeds([this] {
        const Entries entries = Chosen();
        if (entries.empty()) return;
        const auto days = AskShift(Window(), TextOf(entries));
        if (!days) return;
        DoToEach(entries, u"Shifted the start of %1."_s,
                 [&](std::int32_t id) { NolSchedCtls::ShiftStart(workspace, id, *days); });
    });
}

void RowActs::Copy() const {
    if (!table.ChosenRows().empty()) QGuiApplication::clipboard()->setText(table.ChosenText());
}

}  // namespace NolSchedCtls
