// The order of the entries by a column of their list.
#pragma once

#include <stop_token>

#include "host/window/entry_row.h"

namespace NolSchedCtls {

struct EntryOrder {
    int column = EntryRow::Id;
    Qt::SortOrder direction = Qt::AscendingOrder;
};

// What is equal in that order stays as it is. For threads; what comes after a stop is of no use.
EntryRows Sorted(const EntryRows& rows, const EntryOrder& order, const std::stop_token& stop);

}  // namespace NolSchedCtls
