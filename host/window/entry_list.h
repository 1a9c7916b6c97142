// The entries as the main window lists them: sorted and filtered in memory.
#pragma once

#include <QAbstractTableModel>
#include <unordered_map>

#include "host/window/background_job.h"
#include "host/window/entry_filter.h"
#include "host/window/entry_order.h"
#include "host/window/entry_row.h"

namespace NolSchedCtls {

// Sorts and filters long lists on a thread beside the windows; they stay as they are until that is done.
class EntryList : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void Clear();
    // By Id. After the others, wherever the list is sorted to; Sort puts into their places.
    void Append(const EntryRows& added);
    // In the place of the row of that id, or after the others.
    void Put(const RowPointer& row);
    void Remove(std::int64_t id);
    // Tells of each entry whose next run has come what comes after it. False if there is none.
    bool Advance(DateTime now);
    // Shows the rows that hold each of the words somewhere, and are in that state, if there is one. Resets
    // the model.
    void SetFilter(const QString& words, const QString& state = {});
    // Where a row stands out of its order.
    void Sort() { Arrange(false); }
    bool IsArranging() const { return job.IsRunning(); }

    // By Id.
    const EntryRows& All() const { return rows; }
    const EntryRows& Shown() const { return shown; }
    const RowPointer& RowAt(int place) const { return shown.at(place); }
    std::size_t Size() const { return static_cast<std::size_t>(rows.size()); }
    std::int64_t IdAt(int place) const { return RowAt(place)->id; }
    int PlaceOf(std::int64_t id) const;  // -1 for a row that is not shown
    bool IsGone(std::int64_t id) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder direction) override;

  Q_SIGNALS:
    // A row that was shown has changed and no longer passes the filter.
    void Left(const QString& name);
    // The rows that pass the latest filter are shown.
    void Filtered();

  private:
    EntryRows::const_iterator FirstFrom(std::int64_t id) const;
    void Show(const EntryRows& added);
    void ShowPut(int place, const RowPointer& row);
    void Hide(int place);
    void Replace(const std::unordered_map<const EntryRow*, RowPointer>& replaced);
    void Await(const EntryRow& row);
    void Arrange(bool isFilterNew);
    void TakeArranged(EntryRows arranged);
    void Reorder(const EntryRows& ordered);

    EntryRows rows;
    EntryRows shown;
    DateTime due = EntryRow::never;  // when the first of the next runs comes
    EntryFilter filter;
    EntryOrder order;
    bool isFiltering = false;  // the job goes from all rows, not from those shown
    qsizetype taken = 0;       // by the job; what comes after them has been appended meanwhile
    BackgroundJob job;
};

}  // namespace NolSchedCtls
