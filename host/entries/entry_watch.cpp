#include "host/entries/entry_watch.h"

#include <algorithm>
#include <iterator>

namespace NolSchedCtls {

namespace {

// 0 for what is no whole number.
std::int64_t Whole(const LintelValue& value) {
    const auto* const number = std::get_if<std::int64_t>(&value);
    return number == nullptr ? 0 : *number;
}

}  // namespace

std::vector<EntryWatch::IdAndVersion> EntryWatch::Read() const {
    std::vector<IdAndVersion> read;
    const auto rows = database.Open("SELECT Id, Version FROM NOL_Schedule ORDER BY Id");
    for (; !rows->AtEnd(); rows->MoveNext()) read.emplace_back(Whole(rows->Value(0)), Whole(rows->Value(1)));
    return read;
}

void EntryWatch::Note(std::int64_t id) {
    const auto place = std::ranges::lower_bound(seen, id, {}, &IdAndVersion::first);
    if (place == seen.end() || place->first != id)
        seen.insert(place, {id, 0});
    else
        place->second = 0;
}

void EntryWatch::Look(const Visit& visit) {
    mayDiffer = database.HearsChange() || mayDiffer;
    if (!mayDiffer) return;
    auto read = Read();
    std::vector<IdAndVersion> saved;
    std::vector<IdAndVersion> deleted;
    std::ranges::set_difference(read, seen, std::back_inserter(saved));
    constexpr auto id = &IdAndVersion::first;
    std::ranges::set_difference(seen, read, std::back_inserter(deleted), {}, id, id);
    std::vector<EntryChange> changes;
    changes.reserve(saved.size() + deleted.size());
    for (const auto& entry : saved) changes.push_back({entry.first, false});
    for (const auto& entry : deleted) changes.push_back({entry.first, true});
    visit(changes);
    seen = std::move(read);
    mayDiffer = false;
}

}  // namespace NolSchedCtls
