#include "host/window/entry_list.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include <QGuiApplication>
#include <QPalette>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/toolkit/date_text.h"
#include "host/entries/entry_sentence.h"
#include "host/window/qt_text.h"
#include "host/window/run_text.h"

namespace NolSchedCtls {

namespace {

using IsBefore = bool (*)(const EntryRow&, const EntryRow&);

template <EntryRow::Column column>
bool TextIsBefore(const EntryRow& left, const EntryRow& right) {
    return QString::compare(left.texts[column], right.texts[column], Qt::CaseInsensitive) < 0;
}

template <auto member>
bool NumberIsBefore(const EntryRow& left, const EntryRow& right) {
    return left.*member < right.*member;
}

// What does not run comes last.
bool NextIsBefore(const EntryRow& left, const EntryRow& right) {
    return left.next && (!right.next || *left.next < *right.next);
}

struct ColumnKind {
    const char* heading;
    IsBefore isBefore;
};

constexpr std::array<ColumnKind, EntryRow::columnCount> columns = {
    ColumnKind{"Id", NumberIsBefore<&EntryRow::id>},
    ColumnKind{"Name", TextIsBefore<EntryRow::Name>},
    ColumnKind{"Group", TextIsBefore<EntryRow::Group>},
    ColumnKind{"Schedule", TextIsBefore<EntryRow::Sentence>},
    ColumnKind{"Next run", NextIsBefore},
    ColumnKind{"State", TextIsBefore<EntryRow::State>},
    ColumnKind{"Overrides", TextIsBefore<EntryRow::Overrides>},
    ColumnKind{"Start", NumberIsBefore<&EntryRow::start>},
    ColumnKind{"End", NumberIsBefore<&EntryRow::end>},
};

const ColumnKind& KindOf(int column) { return columns[static_cast<std::size_t>(column)]; }

QString KindsText(const ListedEntry& entry) {
    QStringList kinds;
    for (const auto& kind : entry.kinds) kinds.append(ToVisible(kind).remove(u" Study"_s));
    return kinds.join(u", "_s);
}

QString EndText(DateTime end) {
    return DateOf(end) == MAppConstants::NoEndDate ? u"No end"_s : ToQt(ShortDateText(end));
}

void SetState(EntryRow& row, const EntryState& state) {
    row.next = state.next;
    row.reason = ToVisible(state.reason);
    row.texts[EntryRow::NextRun] = state.next ? ShortRunText(*state.next) : QString();
    row.texts[EntryRow::State] = ToQt(state.text);
    row.searched.clear();
    for (const QString& text : row.texts) row.searched += text.toCaseFolded() + u'\n';
}

EntryRow Advanced(EntryRow row, DateTime now) {
    SetState(row, StateAt(*row.schedule, now));
    return row;
}

// A row as a screen reader says it, in the place of its name.
QString SpokenRow(const EntryRow& row) {
    const auto& texts = row.texts;
    QString spoken = u"%1, %2: %3. %4"_s.arg(texts[EntryRow::Name], texts[EntryRow::Group],
                                             texts[EntryRow::Sentence], texts[EntryRow::State]);
    if (!row.reason.isEmpty()) spoken += u": "_s + row.reason;
    if (row.next) spoken += u", next run "_s + texts[EntryRow::NextRun];
    const QString& overrides = texts[EntryRow::Overrides];
    return overrides.isEmpty() ? spoken : spoken + u". Overrides: "_s + overrides;
}

QVariant ColorOf(const QString& state) {
    const QPalette palette = QGuiApplication::palette();
    if (IsTrouble(state)) return palette.color(QPalette::BrightText);
    if (state == ToQt(TextOf(RunState::Scheduled))) return {};
    return palette.color(QPalette::PlaceholderText);
}

}  // namespace

EntryRow RowOf(const ListedEntry& entry, const EntryOutlook& outlook) {
    const CNolSchedData& record = *entry.record;
    const bool isRead = entry.trouble.empty();
    const Sentence sentence = SentenceOf(entry);
    EntryRow row{.id = entry.id, .start = record.FirstDateTime, .end = record.FinalDateTime};
    row.texts = {QString::number(entry.id),
                 ToVisible(record.EditorName),
                 ToVisible(entry.group),
                 ToVisible(sentence.text),
                 {},
                 {},
                 KindsText(entry),
                 isRead ? ToQt(ShortDateText(row.start)) : QString(),
                 isRead ? EndText(row.end) : QString()};
    if (IsRunnable(entry, sentence.trouble)) row.schedule = outlook.ScheduleOf(record);
    SetState(row, row.schedule ? outlook.StateOf(*row.schedule) : outlook.StateOf(entry, sentence.trouble));
    return row;
}

bool IsTrouble(const QString& state) {
    static const QStringList troubles = {ToQt(TextOf(RunState::NeverRuns)),
                                         ToQt(TextOf(RunState::Unreadable)), ToQt(groupMissing)};
    return troubles.contains(state);
}

bool EntryList::Passes(const EntryRow& row) const {
    return std::all_of(filter.begin(), filter.end(),
                       [&row](const QString& word) { return row.searched.contains(word); });
}

void EntryList::Clear() {
    beginResetModel();
    rows.clear();
    shown.clear();
    due = never;
    endResetModel();
}

void EntryList::Append(const std::vector<EntryRow>& added) {
    EntryRows passing;
    for (const EntryRow& row : added) {
        rows.push_back(std::make_shared<EntryRow>(row));
        Await(row);
        if (Passes(row)) passing.push_back(rows.back());
    }
    Show(passing);
}

void EntryList::Show(const EntryRows& added) {
    if (added.empty()) return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(added.size()) - 1);
    shown.insert(shown.end(), added.begin(), added.end());
    endInsertRows();
}

void EntryList::Put(const EntryRow& row) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const auto& r) { return r->id == row.id; });
    if (found == rows.end()) return Append({row});
    *found = std::make_shared<EntryRow>(row);
    Await(row);
    const int place = PlaceOf(row.id);
    if (place < 0) return Passes(row) ? Show({*found}) : void();
    shown[static_cast<std::size_t>(place)] = *found;
    Q_EMIT dataChanged(index(place, 0), index(place, EntryRow::columnCount - 1));
}

void EntryList::Remove(std::int64_t id) {
    std::erase_if(rows, [id](const auto& row) { return row->id == id; });
    const int place = PlaceOf(id);
    if (place < 0) return;
    beginRemoveRows({}, place, place);
    shown.erase(shown.begin() + place);
    endRemoveRows();
}

void EntryList::Await(const EntryRow& row) { due = std::min(due, row.next.value_or(never)); }

bool EntryList::Advance(DateTime now) {
    if (now < due) return false;
    due = never;
    std::unordered_map<std::int64_t, RowPointer> advanced;
    for (RowPointer& row : rows) {
        if (row->next && *row->next <= now)
            row = advanced[row->id] = std::make_shared<EntryRow>(Advanced(*row, now));
        Await(*row);
    }
    for (RowPointer& row : shown)
        if (const auto found = advanced.find(row->id); found != advanced.end()) row = found->second;
    if (!shown.empty())
        Q_EMIT dataChanged(index(0, EntryRow::NextRun), index(rowCount() - 1, EntryRow::State));
    return true;
}

auto EntryList::Before() const {
    return [isBefore = KindOf(sortColumn).isBefore, isAscending = sortOrder == Qt::AscendingOrder](
               const RowPointer& left, const RowPointer& right) {
        return isAscending ? isBefore(*left, *right) : isBefore(*right, *left);
    };
}

void EntryList::SetFilter(const QString& words) {
    beginResetModel();
    filter = words.toCaseFolded().split(u' ', Qt::SkipEmptyParts);
    shown.clear();
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(shown),
                 [this](const auto& row) { return Passes(*row); });
    Order();
    endResetModel();
}

int EntryList::PlaceOf(std::int64_t id) const {
    const auto found =
        std::find_if(shown.begin(), shown.end(), [id](const auto& row) { return row->id == id; });
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
}

int EntryList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

int EntryList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : EntryRow::columnCount;
}

QVariant EntryList::data(const QModelIndex& index, int role) const {
    const EntryRow& row = RowAt(index.row());
    const QString& text = row.texts[static_cast<std::size_t>(index.column())];
    const bool isState = index.column() == EntryRow::State;
    if (role == Qt::ToolTipRole && isState && !row.reason.isEmpty()) return text + u": "_s + row.reason;
    if (role == Qt::AccessibleTextRole && index.column() == EntryRow::Name) return SpokenRow(row);
    if (role == Qt::ForegroundRole && isState) return ColorOf(text);
    return role == Qt::DisplayRole || role == Qt::ToolTipRole ? text : QVariant();
}

QVariant EntryList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return QString::fromUtf8(KindOf(section).heading);
    if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
    return {};
}

void EntryList::Order() { std::stable_sort(shown.begin(), shown.end(), Before()); }

void EntryList::Sort() {
    if (!std::is_sorted(shown.begin(), shown.end(), Before())) sort(sortColumn, sortOrder);
}

void EntryList::sort(int column, Qt::SortOrder order) {
    sortColumn = column;
    sortOrder = order;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const EntryRows former = before.empty() ? EntryRows() : shown;
    Order();
    std::unordered_map<RowPointer, int> places;  // many rows may be chosen
    for (std::size_t place = 0; place < former.size(); ++place)
        places[shown[place]] = static_cast<int>(place);
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.append(index(places[former[static_cast<std::size_t>(old.row())]], old.column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

}  // namespace NolSchedCtls
