// The entries as the main window lists them: sorted and filtered in memory.
#pragma once

#include <QAbstractTableModel>
#include <array>
#include <memory>
#include <vector>

#include "host/entries/entry_store.h"

namespace NolSchedCtls {

// What the list shows of one entry.
struct EntryRow {
    enum Column { Id, Name, Group, Schedule, Overrides, Start, End, columnCount };

    std::int64_t id = 0;
    DateTime start = 0;
    DateTime end = 0;
    std::array<QString, columnCount> texts;
    QString searched;  // all texts, their case folded
};
EntryRow RowOf(const ListedEntry& entry);

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
    // Shows the rows that hold each of the words somewhere. Resets the model.
    void SetFilter(const QString& words);
    void Sort() { sort(sortColumn, sortOrder); }

    std::size_t Size() const { return rows.size(); }
    std::int64_t IdAt(int place) const { return shown[static_cast<std::size_t>(place)]->id; }
    int PlaceOf(std::int64_t id) const;  // -1 for a row that is not shown

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

  private:
    using RowPointer = std::shared_ptr<const EntryRow>;

    bool Passes(const EntryRow& row) const;
    void Show(const std::vector<RowPointer>& added);
    void Order();

    std::vector<RowPointer> rows;
    std::vector<RowPointer> shown;
    QStringList filter;
    int sortColumn = EntryRow::Id;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
};

}  // namespace NolSchedCtls
