// The entries as the main window lists them: sorted and filtered in memory.
#pragma once

#include <QAbstractTableModel>
#include <array>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include "host/entries/entry_outlook.h"

namespace NolSchedCtls {

// What the list shows of one entry.
struct EntryRow {
    enum Column {
        Id,
        Name,
        Group,
        Sentence,
        NextRun,
        State,
        Time,
        Except,
        Overrides,
        Start,
        End,
        Saved,
        columnCount
    };

    std::int64_t id = 0;
    DateTime start = 0;
    DateTime end = 0;
    DateTime savedAt = 0;
    bool isActive = false;
    std::array<QString, columnCount> texts = {};
    QString searched = {};                  // all texts, their case folded
    std::optional<Schedule> schedule = {};  // none of an entry that has no runs, whatever its fields say
    std::optional<DateTime> next = {};
    QString reason = {};  // why an entry never runs or cannot be shown
};
EntryRow RowOf(const ListedEntry& entry, const EntryOutlook& outlook);

// Rows never change once they are listed, so that a thread may read them.
using EntryRows = std::vector<std::shared_ptr<const EntryRow>>;

// Whether the word for an entry's state tells of a fault.
bool IsTrouble(const QString& state);

class EntryList : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void Clear();
    // After the others, wherever the list is sorted to; Sort puts them into their places.
    void Append(const std::vector<EntryRow>& added);
    // In the place of the row of that id, or after the others.
    void Put(const EntryRow& row);
    void Remove(std::int64_t id);
    // Tells of each entry whose next run has come what comes after it. False if there is none.
    bool Advance(DateTime now);
    // Shows the rows that hold each of the words somewhere, and are in that state, if there is one. Resets
    // the model.
    void SetFilter(const QString& words, const QString& state = {});
    // Where a row stands out of its order.
    void Sort();

    const EntryRows& All() const { return rows; }
    const EntryRows::value_type& RowAt(int place) const { return shown[static_cast<std::size_t>(place)]; }
    std::size_t Size() const { return rows.size(); }
    std::int64_t IdAt(int place) const { return RowAt(place)->id; }
    int PlaceOf(std::int64_t id) const;  // -1 for a row that is not shown
    bool IsGone(std::int64_t id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  Q_SIGNALS:
    // A row that was shown has changed and no longer passes the filter.
    void Left(const QString& name);

  private:
    using RowPointer = std::shared_ptr<const EntryRow>;
    static constexpr DateTime never = std::numeric_limits<DateTime>::infinity();

    bool Passes(const EntryRow& row) const;
    void Show(const EntryRows& added);
    void Hide(int place);
    void HideFailing();
    auto Before() const;
    void Order();
    void Await(const EntryRow& row);

    EntryRows rows;
    EntryRows shown;
    DateTime due = never;  // when the first of the next runs comes
    QStringList filter;
    QString filterState;
    int sortColumn = EntryRow::Id;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
};

}  // namespace NolSchedCtls
