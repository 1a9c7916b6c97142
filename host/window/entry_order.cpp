#include "host/window/entry_order.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>
#include <vector>

#include "host/window/natural_order.h"

namespace NolSchedCtls {

namespace {

// What a column is sorted by: a number, or a shared text. Neither: the name.
struct SortedBy {
    double (*number)(const EntryRow& row) = nullptr;
    SharedText EntryRow::*text = nullptr;
};

template <auto member>
constexpr SortedBy byNumber = {
    .number = [](const EntryRow& row) { return static_cast<double>(row.*member); }};

double TimeOf(const EntryRow& row) { return row.start - std::floor(row.start); }

constexpr std::array<SortedBy, EntryRow::columnCount> sortedColumns = {
    byNumber<&EntryRow::id>,
    SortedBy{},
    SortedBy{.text = &EntryRow::group},
    SortedBy{.text = &EntryRow::sentence},
    byNumber<&EntryRow::next>,
    SortedBy{.text = &EntryRow::state},
    SortedBy{.number = TimeOf},
    SortedBy{.text = &EntryRow::except},
    SortedBy{.text = &EntryRow::overrides},
    byNumber<&EntryRow::start>,
    byNumber<&EntryRow::end>,
    byNumber<&EntryRow::savedAt>,
};

struct Stopped {};

void GoOnUnless(const std::stop_token& stop) {
    if (stop.stop_requested()) throw Stopped();
}

// The place of each of the texts among them, by its number: the texts are few, the rows are not.
class Ranks {
  public:
    Ranks(const EntryRows& rows, SharedText EntryRow::*text, const std::stop_token& stop) {
        std::unordered_map<std::size_t, SharedText> found;
        for (const auto& row : rows) {
            GoOnUnless(stop);
            found.try_emplace((*row.*text).Number(), *row.*text);
        }
        std::vector<SharedText> ordered;
        ordered.reserve(found.size());
        for (const auto& [number, one] : found) ordered.push_back(one);
        const auto isBefore = [](const SharedText& left, const SharedText& right) {
            return CompareNaturally(left.Text(), right.Text()) < 0;
        };
        std::ranges::sort(ordered, isBefore);
        double rank = 0;
        for (std::size_t place = 0; place < ordered.size(); ++place) {
            if (place > 0 && isBefore(ordered[place - 1], ordered[place])) ++rank;
            ranks[ordered[place].Number()] = rank;
        }
    }

    double operator[](const SharedText& text) const { return ranks.at(text.Number()); }

  private:
    std::unordered_map<std::size_t, double> ranks;
};

// A row beside what it is sorted by, so that rows are not fetched again for each comparison.
struct Sortable {
    double number;
    const EntryRow* row;
};

std::vector<Sortable> Sortables(const EntryRows& rows, const SortedBy& by, const std::stop_token& stop) {
    std::vector<Sortable> sortables;
    sortables.reserve(static_cast<std::size_t>(rows.size()));
    const Ranks ranks(by.text == nullptr ? EntryRows() : rows, by.text, stop);
    for (const auto& row : rows) {
        GoOnUnless(stop);
        const double number = by.number != nullptr ? by.number(*row)
                              : by.text != nullptr ? ranks[*row.*by.text]
                                                   : 0;
        sortables.push_back({number, row.get()});
    }
    return sortables;
}

}  // namespace

EntryRows Sorted(const EntryRows& rows, const EntryOrder& order, const std::stop_token& stop) {
    const SortedBy& by = sortedColumns[static_cast<std::size_t>(order.column)];
    const bool isByName = by.number == nullptr && by.text == nullptr;
    const auto isBefore = [&](const Sortable& left, const Sortable& right) {
        GoOnUnless(stop);
        return isByName ? CompareNaturally(left.row->name, right.row->name) < 0 : left.number < right.number;
    };
    const auto isInOrder = [&](const Sortable& left, const Sortable& right) {
        return order.direction == Qt::AscendingOrder ? isBefore(left, right) : isBefore(right, left);
    };
    try {
        std::vector<Sortable> sortables = Sortables(rows, by, stop);
        if (std::ranges::is_sorted(sortables, isInOrder)) return rows;
        std::ranges::stable_sort(sortables, isInOrder);
        EntryRows sorted;
        sorted.reserve(rows.size());
        for (const Sortable& sortable : sortables) {
            GoOnUnless(stop);
            sorted.append(RowPointer(sortable.row));
        }
        return sorted;
    } catch (const Stopped&) {
        return rows;
    }
}

}  // namespace NolSchedCtls
