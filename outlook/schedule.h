// When an entry runs, from its record's fields.
#pragma once

#include <array>
#include <chrono>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "outlook/holidays.h"
#include "outlook/recurrence.h"
#include "outlook/steps.h"

namespace NolSchedCtls::inline v1 {

enum class RunState { Scheduled, Paused, Immediate, Ended, NeverRuns, Unreadable };

inline constexpr std::array allRunStates = {RunState::Scheduled, RunState::Paused,    RunState::Immediate,
                                            RunState::Ended,     RunState::NeverRuns, RunState::Unreadable};

// As people and programs read it: "Scheduled", "Never runs", "Cannot be shown".
std::string_view TextOf(RunState state);

// NeverRuns and Unreadable have a reason: "Friday is excluded", "WhichWeekday is 9, not 1 to 7".
struct ScheduleState {
    RunState state = RunState::Scheduled;
    std::string reason = {};
};

class RunRange;

// What one record says, read once; later changes of the record do not reach it. Runs are never before
// FirstDateTime and never after FinalDateTime. A run on an excluded day falls out, and is not moved. No time
// zone is applied. Only a schedule that is Scheduled or Ended has runs.
//
// A call costs the same wherever the schedule began. Never throws for a record: one that makes no sense is
// Unreadable. Never changes, so that threads may share one.
class Schedule {
  public:
    explicit Schedule(const CNolSchedData& record, Holidays holidaysA = {},
                      const OutlookSettings& settings = {});
    // The schedule that gave this rule.
    Schedule(const Recurrence& rule, Holidays holidaysA);

    // What its runs follow, which is smaller than the schedule; nothing for one without runs.
    std::optional<Recurrence> Rule() const;
    // The first run after the moment, if there is one within 28 years, after which the calendar repeats.
    std::optional<DateTime> NextAfter(DateTime moment) const;
    // Both moments included; found one by one while the range is gone through. The schedule must outlive it.
    RunRange RunsBetween(DateTime from, DateTime to) const&;
    RunRange RunsBetween(DateTime from, DateTime to) const&& = delete;
    // Paused, Immediate and Unreadable whatever the moment is; otherwise by the runs after it.
    ScheduleState StateAt(DateTime moment) const;

  private:
    friend class RunRange;

    Moment FirstFrom(Moment from, Moment until = latestMoment) const;
    Moment SearchEnd(Moment from) const;
    Moment Step(Moment from, Moment until) const { return FirstStepFrom(steps, from, until); }
    std::size_t ExclusionOf(Day day) const;
    ExcludedDays ExclusionsMet() const;
    std::string WhyNever() const;

    ScheduleState fixed;  // Scheduled: the runs decide
    Recurrence recurrence;
    Steps steps;
    Holidays holidays;
};

// The runs of a part of a schedule, as date-times in their order.
class RunRange {
  public:
    class Iterator {
      public:
        using value_type = DateTime;
        using difference_type = std::ptrdiff_t;

        Iterator() = default;
        Iterator(const Schedule& scheduleA, Moment from, Moment untilA)
            : schedule(&scheduleA), until(untilA), run(schedule->FirstFrom(from, until)) {}

        DateTime operator*() const { return DateTimeOf(run); }
        Iterator& operator++() {
            run = schedule->FirstFrom(run + std::chrono::seconds{1}, until);
            return *this;
        }
        Iterator operator++(int) {
            const Iterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const Iterator& other) const { return run == other.run; }
        bool operator==(std::default_sentinel_t /*end*/) const { return run == noMoment; }

      private:
        const Schedule* schedule = nullptr;
        Moment until;
        Moment run = noMoment;
    };

    Iterator begin() const { return {*schedule, from, until}; }
    std::default_sentinel_t end() const { return {}; }

  private:
    friend class Schedule;
    RunRange(const Schedule& scheduleA, Moment fromA, Moment untilA)
        : schedule(&scheduleA), from(fromA), until(untilA) {}

    const Schedule* schedule;
    Moment from;
    Moment until;
};

}  // namespace NolSchedCtls::inline v1
