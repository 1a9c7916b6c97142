// What will run of a store's entries, and what will not.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/entries/workspace.h"
#include "outlook/schedule.h"

namespace NolSchedCtls {

// An entry that cannot be shown, or whose group is gone, has no runs. The trouble is that of its sentence.
inline bool IsRunnable(const ListedEntry& entry, const std::string& trouble) {
    return trouble.empty() && !entry.group.empty();
}

inline constexpr std::string_view groupMissing = "Group missing";

// Every text that a state can have.
std::vector<std::string> AllStates();

struct EntryState {
    std::string text;    // "Scheduled", "Never runs", ..., "Group missing"
    std::string reason;  // why an entry never runs or cannot be shown
    std::optional<DateTime> next;
};

EntryState StateAt(const Schedule& schedule, DateTime moment);

// As of the moment at which it is made: reads clock, holidays and the length of a period once. Throws
// StoreError where the store fails.
class EntryOutlook {
  public:
    explicit EntryOutlook(Workspace& workspace);

    DateTime Now() const { return now; }
    Schedule ScheduleOf(const CNolSchedData& record) const { return Schedule(record, holidays, settings); }
    const OutlookSettings& Settings() const { return settings; }
    const HolidayDays& Days() const { return days; }
    const Holidays& HolidaysExcluded() const { return holidays; }
    // Whether both tell the same of an entry.
    bool IsLike(const EntryOutlook& other) const { return days == other.days && settings == other.settings; }
    // With the trouble of its sentence.
    EntryState StateOf(const ListedEntry& entry, const std::string& trouble) const;
    EntryState StateOf(const Schedule& schedule) const { return StateAt(schedule, now); }

  private:
    DateTime now;
    HolidayDays days;
    Holidays holidays;
    OutlookSettings settings;
};

// "2026-03-27 22:30", with the seconds where there are any.
std::string MomentText(DateTime moment);

// After every run that is asked for.
inline constexpr DateTime farthest = 2958465;  // 9999-12-31

struct EntryRun {
    DateTime at = 0;
    std::int32_t id = 0;
    const std::string* name = nullptr;  // as long as the runs stand
};

// The runs of many entries in order of time, then Id. Found for a span after the other and sorted there,
// which for many entries is several times as fast as to look for the next one of all.
class MergedRuns {
  public:
    // Both moments included.
    MergedRuns(DateTime fromA, DateTime toA) : from(fromA), to(toA) {}

    // All before the first look. Whether it has a run.
    bool Add(std::int32_t id, std::string name, Schedule schedule);

    bool AtEnd() const { return next == found.size() && heads.empty(); }
    const EntryRun& Current();
    void MoveNext() {
        Current();
        ++next;
    }

  private:
    struct Item {
        std::int32_t id;
        std::string name;
        Schedule schedule;
    };
    struct Head {
        RunRange::Iterator run;  // the first that is not found yet
        const Item* item;
    };

    void FindNextSpan();

    DateTime from;
    DateTime to;
    static constexpr DateTime longestSpan = 366;
    DateTime span = 1.0 / 24;
    std::deque<Item> items;
    std::vector<Head> heads;  // of the items that have runs left
    std::vector<EntryRun> found;
    std::size_t next = 0;  // of those found
};

}  // namespace NolSchedCtls
