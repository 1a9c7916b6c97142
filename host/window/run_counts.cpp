#include "host/window/run_counts.h"

#include <algorithm>
#include <set>
#include <unordered_map>

namespace NolSchedCtls {

namespace {

constexpr DateTime second = 1.0 / 86400;

void ForEachRunning(const EntryRows& entries, const std::stop_token& stop, const auto& visit) {
    for (const auto& entry : entries) {
        if (stop.stop_requested()) return;
        if (entry->recurrence) visit(*entry);
    }
}

std::size_t PartOf(Moment start, DateTime at, std::chrono::seconds part) {
    return static_cast<std::size_t>((MomentOf(at) - start) / part);
}

// Calls visit(place) for each run of the days that follow, with its place among their parts.
void ForEachPart(const EntryRow& entry, DateTime firstDay, int days, std::chrono::seconds part,
                 const auto& visit) {
    const Moment start = MomentOf(firstDay);
    const Schedule schedule = entry.Runs();
    for (const DateTime at : schedule.RunsBetween(firstDay, firstDay + days - second))
        visit(PartOf(start, at, part));
}

}  // namespace

std::vector<int> CountByDay(const EntryRows& entries, DateTime firstDay, int days,
                            const std::stop_token& stop) {
    std::vector<int> counts(static_cast<std::size_t>(days));
    ForEachRunning(entries, stop, [&](const EntryRow& entry) {
        ForEachPart(entry, firstDay, days, std::chrono::days{1}, [&](std::size_t day) { ++counts[day]; });
    });
    return counts;
}

std::vector<ShownRun> FirstRuns(const EntryRows& entries, DateTime from, DateTime to, std::size_t most,
                                const std::stop_token& stop) {
    std::set<ShownRun> first;
    ForEachRunning(entries, stop, [&](const EntryRow& entry) {
        const Schedule schedule = entry.Runs();
        for (const DateTime at : schedule.RunsBetween(from, to)) {
            first.insert({at, entry.id, entry.name});
            if (first.size() <= most) continue;
            const auto dropped = first.extract(std::prev(first.end()));
            if (dropped.value().id == entry.id) return;  // what follows is later still
        }
    });
    return {first.begin(), first.end()};
}

WeekLoad LoadOfWeek(const EntryRows& entries, DateTime now, const std::stop_token& stop) {
    const DateTime firstDay = DateOf(now);
    WeekLoad load{.firstDay = firstDay, .hourNow = PartOf(MomentOf(firstDay), now, std::chrono::hours{1})};
    std::unordered_map<QString, std::size_t> places;
    ForEachRunning(entries, stop, [&](const EntryRow& entry) {
        const QString& group = entry.group.Text();
        const auto [found, isNew] = places.try_emplace(group, places.size());
        if (isNew) load.groups.append(group);
        ForEachPart(entry, firstDay, 7, std::chrono::hours{1}, [&, place = found->second](std::size_t hour) {
            auto& [runs, byGroup] = load.hours[hour];
            byGroup.resize(std::max(byGroup.size(), place + 1));
            ++byGroup[place];
            load.most = std::max(load.most, ++runs);
        });
    });
    return load;
}

}  // namespace NolSchedCtls
