#include "host/window/entry_list.h"

#include <algorithm>
#include <array>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/toolkit/date_text.h"
#include "host/entries/entry_sentence.h"
#include "host/window/qt_text.h"

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

struct ColumnKind {
    const char* heading;
    IsBefore isBefore;
};

constexpr std::array<ColumnKind, EntryRow::columnCount> columns = {
    ColumnKind{"Id", NumberIsBefore<&EntryRow::id>},
    ColumnKind{"Name", TextIsBefore<EntryRow::Name>},
    ColumnKind{"Group", TextIsBefore<EntryRow::Group>},
    ColumnKind{"Schedule", TextIsBefore<EntryRow::Schedule>},
    ColumnKind{"Overrides", TextIsBefore<EntryRow::Overrides>},
    ColumnKind{"Start", NumberIsBefore<&EntryRow::start>},
    ColumnKind{"End", NumberIsBefore<&EntryRow::end>},
};

const ColumnKind& KindOf(int column) { return columns[static_cast<std::size_t>(column)]; }

QString KindsText(const ListedEntry& entry) {
    QStringList kinds;
    for (const auto& kind : entry.kinds) kinds.append(ToQt(kind).remove(u" Study"_s));
    return kinds.join(u", "_s);
}

QString EndText(DateTime end) {
    return DateOf(end) == MAppConstants::NoEndDate ? u"No end"_s : ToQt(ShortDateText(end));
}

}  // namespace

EntryRow RowOf(const ListedEntry& entry) {
    const CNolSchedData& record = *entry.record;
    const bool isRead = entry.trouble.empty();
    EntryRow row{entry.id, record.FirstDateTime, record.FinalDateTime, {}, {}};
    row.texts = {QString::number(entry.id),
                 ToQt(record.EditorName),
                 ToQt(entry.group),
                 ToQt(SentenceOf(entry).text),
                 KindsText(entry),
                 isRead ? ToQt(ShortDateText(row.start)) : QString(),
                 isRead ? EndText(row.end) : QString()};
    for (const QString& text : row.texts) row.searched += text.toCaseFolded() + u'\n';
    return row;
}

bool EntryList::Passes(const EntryRow& row) const {
    return std::all_of(filter.begin(), filter.end(),
                       [&row](const QString& word) { return row.searched.contains(word); });
}

void EntryList::Clear() {
    beginResetModel();
    rows.clear();
    shown.clear();
    endResetModel();
}

void EntryList::Append(const std::vector<EntryRow>& added) {
    std::vector<RowPointer> passing;
    for (const EntryRow& row : added) {
        rows.push_back(std::make_shared<EntryRow>(row));
        if (Passes(row)) passing.push_back(rows.back());
    }
    Show(passing);
}

void EntryList::Show(const std::vector<RowPointer>& added) {
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
    const EntryRow& row = *shown[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return row.texts[static_cast<std::size_t>(index.column())];
    return {};
}

QVariant EntryList::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::DisplayRole) return QString::fromUtf8(KindOf(section).heading);
    if (role == Qt::TextAlignmentRole) return int{Qt::AlignLeft | Qt::AlignVCenter};
    return {};
}

void EntryList::Order() {
    const IsBefore isBefore = KindOf(sortColumn).isBefore;
    const bool isAscending = sortOrder == Qt::AscendingOrder;
    std::stable_sort(shown.begin(), shown.end(), [&](const RowPointer& left, const RowPointer& right) {
        return isAscending ? isBefore(*left, *right) : isBefore(*right, *left);
    });
}

void EntryList::sort(int column, Qt::SortOrder order) {
    sortColumn = column;
    sortOrder = order;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    std::vector<std::int64_t> ids;
    for (const QModelIndex& index : before) ids.push_back(IdAt(index.row()));
    Order();
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(PlaceOf(ids[static_cast<std::size_t>(i)]), before[i].column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

}  // namespace NolSchedCtls
