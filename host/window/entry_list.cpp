#include "host/window/entry_list.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include <QGuiApplication>
#include <QPalette>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/toolkit/date_text.h"
#include "host/entries/entry_sentence.h"
#include "host/window/natural_order.h"
#include "host/window/qt_text.h"
#include "host/window/run_text.h"
#include "outlook/description.h"

namespace NolSchedCtls {

namespace {

using IsBefore = bool (*)(const EntryRow&, const EntryRow&);

template <EntryRow::Column column>
bool TextIsBefore(const EntryRow& left, const EntryRow& right) {
    return CompareNaturally(left.texts[column], right.texts[column]) < 0;
}

template <auto member>
bool NumberIsBefore(const EntryRow& left, const EntryRow& right) {
    return left.*member < right.*member;
}

bool TimeIsBefore(const EntryRow& left, const EntryRow& right) {
    return left.start - std::floor(left.start) < right.start - std::floor(right.start);
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
    ColumnKind{"At", TimeIsBefore},
    ColumnKind{"Not on", TextIsBefore<EntryRow::Except>},
    ColumnKind{"Overrides", TextIsBefore<EntryRow::Overrides>},
    ColumnKind{"Start", NumberIsBefore<&EntryRow::start>},
    ColumnKind{"End", NumberIsBefore<&EntryRow::end>},
    ColumnKind{"Saved", NumberIsBefore<&EntryRow::savedAt>},
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

QString SavedText(const ListedEntry& entry) {
    const QString who = ToVisible(entry.savedBy);
    return entry.savedAt == 0 ? who : who + u", "_s + ShortRunText(entry.savedAt);
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

// A text that is cut, and what stands in columns of its own.
QString TipOf(const EntryRow& row, int column) {
    const auto& texts = row.texts;
    QString tip = texts[static_cast<std::size_t>(column)];
    if (column == EntryRow::State && !row.reason.isEmpty()) tip += u": "_s + row.reason;
    if (column != EntryRow::Sentence) return tip;
    if (!texts[EntryRow::Time].isEmpty()) tip += u" at "_s + texts[EntryRow::Time];
    if (!texts[EntryRow::Except].isEmpty()) tip += u", not on "_s + texts[EntryRow::Except];
    return tip;
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
    const bool hasTime = sentence.trouble.empty() && !record.IsOverride();
    EntryRow row{.id = entry.id,
                 .start = record.FirstDateTime,
                 .end = record.FinalDateTime,
                 .savedAt = entry.savedAt,
                 .isActive = record.ScheduleActive == "Y"};
    row.texts = {QString::number(entry.id),
                 ToVisible(record.EditorName),
                 ToVisible(entry.group),
                 ToVisible(sentence.text),
                 {},
                 {},
                 hasTime ? TimeText(row.start) : QString(),
                 ToQt(ExceptionsText(record, outlook.Settings())),
                 KindsText(entry),
                 isRead ? ToQt(ShortDateText(row.start)) : QString(),
                 isRead ? EndText(row.end) : QString(),
                 SavedText(entry)};
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
    const auto isHeld = [&row](const QString& word) { return row.searched.contains(word); };
    return (filterState.isEmpty() || row.texts[EntryRow::State] == filterState) &&
           std::all_of(filter.begin(), filter.end(), isHeld);
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
    if (!Passes(row)) return Hide(place), Q_EMIT Left(row.texts[EntryRow::Name]);
    Q_EMIT dataChanged(index(place, 0), index(place, EntryRow::columnCount - 1));
}

void EntryList::Hide(int place) {
    beginRemoveRows({}, place, place);
    shown.erase(shown.begin() + place);
    endRemoveRows();
}

void EntryList::HideFailing() {
    for (int place = rowCount() - 1; place >= 0; --place)
        if (!Passes(*RowAt(place))) Hide(place);
}

void EntryList::Remove(std::int64_t id) {
    std::erase_if(rows, [id](const auto& row) { return row->id == id; });
    const int place = PlaceOf(id);
    if (place >= 0) Hide(place);
}

void EntryList::Await(const EntryRow& row) { due = std::min(due, row.next.value_or(never)); }

bool EntryList::Advance(DateTime now) {
    if (now < due) return false;
    due = never;
    std::unordered_map<std::int64_t, RowPointer> advanced;
    EntryRows appearing;
    for (RowPointer& row : rows) {
        if (row->next && *row->next <= now) {
            const bool isShown = Passes(*row);
            row = advanced[row->id] = std::make_shared<EntryRow>(Advanced(*row, now));
            if (!isShown && Passes(*row)) appearing.push_back(row);
        }
        Await(*row);
    }
    for (RowPointer& row : shown)
        if (const auto found = advanced.find(row->id); found != advanced.end()) row = found->second;
    if (!shown.empty())
        Q_EMIT dataChanged(index(0, EntryRow::NextRun), index(rowCount() - 1, EntryRow::State));
    HideFailing();
    Show(appearing);
    return true;
}

auto EntryList::Before() const {
    return [isBefore = KindOf(sortColumn).isBefore, isAscending = sortOrder == Qt::AscendingOrder](
               const RowPointer& left, const RowPointer& right) {
        return isAscending ? isBefore(*left, *right) : isBefore(*right, *left);
    };
}

void EntryList::SetFilter(const QString& words, const QString& state) {
    beginResetModel();
    filterState = state;
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

bool EntryList::IsGone(std::int64_t id) const {
    return std::none_of(rows.begin(), rows.end(), [id](const auto& row) { return row->id == id; });
}

int EntryList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown.size());
}

int EntryList::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : EntryRow::columnCount;
}

QVariant EntryList::data(const QModelIndex& index, int role) const {
    const EntryRow& row = *RowAt(index.row());
    if (role == Qt::ToolTipRole) return u"<p>%1</p>"_s.arg(TipOf(row, index.column()).toHtmlEscaped());
    const QString& text = row.texts[static_cast<std::size_t>(index.column())];
    if (role == Qt::AccessibleTextRole && index.column() == EntryRow::Name) return SpokenRow(row);
    if (role == Qt::ForegroundRole && index.column() == EntryRow::State) return ColorOf(text);
    return role == Qt::DisplayRole ? text : QVariant();
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
