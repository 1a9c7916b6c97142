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

std::vector<EntryWatch::IdAndVersion> EntryWatch::Read(std::int64_t most) const {
    std::vector<IdAndVersion> read;
    const auto rows =
        database.Open("SELECT Id, Version FROM NOL_Schedule WHERE Id > CAST(? AS BIGINT) ORDER BY Id LIMIT ?",
                      {afterId, most});
    for (; !rows->AtEnd(); rows->MoveNext()) read.emplace_back(Whole(rows->Value(0)), Whole(rows->Value(1)));
    return read;
}

std::span<EntryWatch::IdAndVersion> EntryWatch::SeenUntil(std::int64_t lastId) {
    const auto first = std::ranges::upper_bound(seen, afterId, {}, &IdAndVersion::first);
    return {first, std::ranges::upper_bound(first, seen.end(), lastId, {}, &IdAndVersion::first)};
}

// Most often only versions have changed, and nothing has to move.
void EntryWatch::Keep(const std::vector<IdAndVersion>& read, std::int64_t lastId) {
    const auto old = SeenUntil(lastId);
    const auto same = std::min(old.size(), read.size());
    std::ranges::copy_n(read.begin(), static_cast<std::ptrdiff_t>(same), old.begin());
    const auto end = seen.begin() + (old.data() - seen.data()) + static_cast<std::ptrdiff_t>(same);
    seen.erase(end, end + static_cast<std::ptrdiff_t>(old.size() - same));
    seen.insert(end, read.begin() + static_cast<std::ptrdiff_t>(same), read.end());
}

void EntryWatch::Note(std::int64_t id) {
    const auto place = std::ranges::lower_bound(seen, id, {}, &IdAndVersion::first);
    if (place == seen.end() || place->first != id)
        seen.insert(place, {id, 0});
    else
        place->second = 0;
}

bool EntryWatch::Look(const Visit& visit, std::int64_t most) {
    if (afterId == beforeAll) mayDiffer = database.HearsChange() || mayDiffer;
    if (!mayDiffer) return false;
    const auto read = Read(most);
    const bool hasMore = std::ssize(read) == most;
    const std::int64_t lastId = hasMore ? read.back().first : std::numeric_limits<std::int64_t>::max();
    const auto before = SeenUntil(lastId);
    std::vector<IdAndVersion> saved;
    std::vector<IdAndVersion> deleted;
    std::ranges::set_difference(read, before, std::back_inserter(saved));
    constexpr auto id = &IdAndVersion::first;
    std::ranges::set_difference(before, read, std::back_inserter(deleted), {}, id, id);
    std::vector<EntryChange> changes;
    changes.reserve(saved.size() + deleted.size());
    for (const auto& entry : saved) changes.push_back({entry.first, false});
    for (const auto& entry : deleted) changes.push_back({entry.first, true});
    if (!hasMore || !changes.empty()) visit(changes);
    Keep(read, lastId);
    afterId = hasMore ? lastId : beforeAll;
    return mayDiffer = hasMore;
}

}  // namespace NolSchedCtls
