// What many entries run, counted. For threads: uses no service, and ends early when it is stopped.
#pragma once

#include <QStringList>
#include <array>
#include <stop_token>

#include "host/window/entry_row.h"

namespace NolSchedCtls {

// On each of so many days.
std::vector<int> CountByDay(const EntryRows& entries, DateTime firstDay, int days,
                            const std::stop_token& stop);

struct ShownRun {
    DateTime at = 0;
    std::int64_t id = 0;
    QString name;

    bool operator==(const ShownRun&) const = default;
    bool operator<(const ShownRun& other) const { return at != other.at ? at < other.at : id < other.id; }
};

// The first ones, in order of time, then Id. Both moments included.
std::vector<ShownRun> FirstRuns(const EntryRows& entries, DateTime from, DateTime to, std::size_t most,
                                const std::stop_token& stop);

inline constexpr int hoursOfDay = 24;
inline constexpr int hoursOfWeek = 7 * hoursOfDay;

// How many runs begin in each hour of seven days.
struct WeekLoad {
    struct Hour {
        int runs = 0;
        std::vector<int> byGroup;  // by the places of `groups`; empty: none
    };

    DateTime firstDay = 0;
    std::size_t hourNow = 0;  // whose place among the hours
    QStringList groups = {};
    std::array<Hour, hoursOfWeek> hours = {};
    int most = 0;  // of all hours
};
// From today on.
WeekLoad LoadOfWeek(const EntryRows& entries, DateTime now, const std::stop_token& stop);

}  // namespace NolSchedCtls
