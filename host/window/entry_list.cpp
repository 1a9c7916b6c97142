#include "host/window/entry_list.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <unordered_map>

#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

constexpr qsizetype mostAtOnce = 10'000;  // are sorted and filtered without a thread

QVariant ColorOf(const QString& state) {
    const QPalette palette = QGuiApplication::palette();
    if (IsTrouble(state)) return palette.color(QPalette::BrightText);
    if (state == ToQt(TextOf(RunState::Scheduled))) return {};
    return palette.color(QPalette::PlaceholderText);
}

bool IsLower(const RowPointer& left, const RowPointer& right) { return left->id < right->id; }

}  // namespace

void EntryList::Clear() {
    job.Stop();
    beginResetModel();
    rows.clear();
    shown.clear();
    due = EntryRow::never;
    endResetModel();
}

EntryRows::const_iterator EntryList::FirstFrom(std::int64_t id) const {
    return std::partition_point(rows.cbegin(), rows.cend(), [id](const auto& row) { return row->id < id; });
}

void EntryList::Append(const EntryRows& added) {
    if (added.empty()) return;
    const qsizetype former = rows.size();
    rows.append(added);
    for (const RowPointer& row : added) Await(*row);
    Show(filter.Passing(added, {}));
    if (former == 0 || IsLower(rows.at(former - 1), added.front())) return;
    std::inplace_merge(rows.begin(), rows.begin() + former, rows.end(), IsLower);
    if (job.IsRunning()) Arrange(false);
}

void EntryList::Show(const EntryRows& added) {
    if (added.empty()) return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
    shown.append(added);
    endInsertRows();
}

void EntryList::Put(const RowPointer& row) {
    if (IsGone(row->id)) return Append({row});
    const int place = PlaceOf(row->id);
    rows[FirstFrom(row->id) - rows.cbegin()] = row;
    Await(*row);
    ShowPut(place, row);
    if (job.IsRunning()) Arrange(false);
}

void EntryList::ShowPut(int place, const RowPointer& row) {
    const bool isPassing = filter.Passes(*row);
    if (place < 0) return isPassing ? Show({row}) : void();
    shown[place] = row;
    if (!isPassing) return Hide(place), Q_EMIT Left(row->name);
    Q_EMIT dataChanged(index(place, 0), index(place, EntryRow::columnCount - 1));
}

void EntryList::Hide(int place) {
    beginRemoveRows({}, place, place);
    shown.remove(place);
    endRemoveRows();
}

void EntryList::Remove(std::int64_t id) {
    if (IsGone(id)) return;
    if (const int place = PlaceOf(id); place >= 0) Hide(place);
    rows.erase(FirstFrom(id));
    if (job.IsRunning()) Arrange(false);
}

void EntryList::Await(const EntryRow& row) { due = std::min(due, row.next); }

bool EntryList::Advance(DateTime now) {
    if (now < due) return false;
    due = EntryRow::never;
    std::unordered_map<const EntryRow*, RowPointer> advanced;
    EntryRows appearing;
    for (RowPointer& row : rows) {
        if (row->next <= now) {
            const RowPointer next = Advanced(*row, now);
            advanced.emplace(row.get(), next);
            if (!filter.Passes(*row) && filter.Passes(*next)) appearing.append(next);
            row = next;
        }
        Await(*row);
    }
    Replace(advanced);
    Show(appearing);
    if (job.IsRunning()) Arrange(false);
    return true;
}

void EntryList::Replace(const std::unordered_map<const EntryRow*, RowPointer>& replaced) {
    std::vector<int> failing;
    for (int place = 0; RowPointer & row : shown) {
        if (const auto found = replaced.find(row.get()); found != replaced.end()) {
            row = found->second;
            if (!filter.Passes(*row)) failing.push_back(place);
        }
        ++place;
    }
    if (!shown.empty())
        Q_EMIT dataChanged(index(0, EntryRow::NextRun), index(rowCount() - 1, EntryRow::State));
    std::for_each(failing.rbegin(), failing.rend(), [this](int place) { Hide(place); });
}

void EntryList::SetFilter(const QString& words, const QString& state) {
    filter = EntryFilter(words, state);
    Arrange(true);
}

int EntryList::PlaceOf(std::int64_t id) const {
    const auto found = FirstFrom(id);
    if (found == rows.cend() || (*found)->id != id) return -1;
    return static_cast<int>(shown.indexOf(*found));
}

bool EntryList::IsGone(std::int64_t id) const {
    const auto found = FirstFrom(id);
    return found == rows.cend() || (*found)->id != id;
}

int EntryList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

int EntryList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : EntryRow::columnCount;
}

QVariant EntryList::data(const QModelIndex& index, int role) const {
    const EntryRow& row = *RowAt(index.row());
    if (role == Qt::DisplayRole) return row.Text(index.column());
    if (role == Qt::ToolTipRole) return u"<p>%1</p>"_s.arg(TipOf(row, index.column()).toHtmlEscaped());
    if (role == Qt::AccessibleTextRole && index.column() == EntryRow::Name) return SpokenRow(row);
    if (role == Qt::ForegroundRole && index.column() == EntryRow::State) return ColorOf(row.state.Text());
    return {};
}

QVariant EntryList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return HeadingOf(section);
    if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
    return {};
}

void EntryList::sort(int column, Qt::SortOrder direction) {
    order = {column, direction};
    Arrange(false);
}

// What is changed while the job runs is told by another call of this; what is appended meanwhile comes last.
void EntryList::Arrange(bool isFilterNew) {
    isFiltering = isFilterNew || (isFiltering && job.IsRunning());
    const EntryRows& from = isFiltering ? rows : shown;
    taken = from.size();
    const auto arrange = [from, filter = isFiltering ? filter : EntryFilter(),
                          order = order](const std::stop_token& stop) {
        EntryFilter own = filter;
        return Sorted(own.Passing(from, stop), order, stop);
    };
    if (taken > mostAtOnce)
        return job.Start(arrange, [this](EntryRows arranged) { TakeArranged(std::move(arranged)); });
    job.Stop();
    TakeArranged(arrange({}));
}

void EntryList::TakeArranged(EntryRows arranged) {
    const EntryRows appended = (isFiltering ? rows : shown).mid(taken);
    if (!appended.empty()) arranged.append(isFiltering ? filter.Passing(appended, {}) : appended);
    if (!isFiltering) return Reorder(arranged);
    beginResetModel();
    shown = std::move(arranged);
    endResetModel();
    Q_EMIT Filtered();
}

void EntryList::Reorder(const EntryRows& ordered) {
    if (ordered.isSharedWith(shown)) return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const EntryRows former = std::exchange(shown, ordered);
    const QModelIndexList before = persistentIndexList();
    std::unordered_map<const EntryRow*, int> places;  // of the few that are chosen
    for (const QModelIndex& old : before) places.emplace(former.at(old.row()).get(), 0);
    for (int place = 0; const RowPointer& row : ordered) {
        if (const auto found = places.find(row.get()); found != places.end()) found->second = place;
        ++place;
    }
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.append(index(places.at(former.at(old.row()).get()), old.column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

}  // namespace NolSchedCtls
