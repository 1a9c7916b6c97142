#include "outlook/schedule.h"

#include <array>
#include <utility>

#include "NolSchedCtls/base/error.h"
#include "outlook/description.h"

namespace NolSchedCtls::inline v1 {

namespace {

using namespace std::chrono;

constexpr days calendarPeriod{28 * 365 + 7};
constexpr std::size_t notExcluded = ExcludedDays{}.size();

Moment NextMidnight(Moment moment) { return DayOf(moment) + days{1}; }

}  // namespace

std::string_view TextOf(RunState state) {
    constexpr std::array<std::string_view, 6> texts = {"Scheduled", "Paused",     "Immediate",
                                                       "Ended",     "Never runs", "Cannot be shown"};
    return texts[static_cast<std::size_t>(state)];
}

Schedule::Schedule(const CNolSchedData& record, Holidays holidaysA, const OutlookSettings& settings)
    : holidays(std::move(holidaysA)) {
    if (record.IsOverride()) {
        fixed.state = RunState::Immediate;
        return;
    }
    if (record.ScheduleActive != "Y") fixed.state = RunState::Paused;
    try {
        recurrence = ReadRecurrence(record, settings);
        steps = StepsOf(recurrence);
    } catch (const NolSchedError& error) {
        fixed = {RunState::Unreadable, error.what()};
    }
}

Schedule::Schedule(const Recurrence& rule, Holidays holidaysA)
    : recurrence(rule), steps(StepsOf(rule)), holidays(std::move(holidaysA)) {}

std::optional<Recurrence> Schedule::Rule() const {
    return fixed.state == RunState::Scheduled ? std::optional(recurrence) : std::nullopt;
}

std::optional<DateTime> Schedule::NextAfter(DateTime moment) const {
    const Moment run = FirstFrom(MomentOf(moment) + seconds{1});
    return run == noMoment ? std::nullopt : std::optional(DateTimeOf(run));
}

RunRange Schedule::RunsBetween(DateTime from, DateTime to) const& {
    return {*this, MomentOf(from), MomentOf(to)};
}

ScheduleState Schedule::StateAt(DateTime moment) const {
    if (fixed.state != RunState::Scheduled) return fixed;
    if (NextAfter(moment)) return {RunState::Scheduled};
    if (FirstFrom(recurrence.first) != noMoment) return {RunState::Ended};
    return {RunState::NeverRuns, WhyNever()};
}

// An excluded day is jumped over as a whole, with all the runs that would lie on it.
Moment Schedule::FirstFrom(Moment from, Moment until) const {
    if (fixed.state != RunState::Scheduled) return noMoment;
    from = std::max(from, recurrence.first);
    until = std::min({until, recurrence.last, SearchEnd(from)});
    Moment run = Step(from, until);
    while (run <= until && ExclusionOf(DayOf(run)) != notExcluded) run = Step(NextMidnight(run), until);
    return run <= until ? run : noMoment;
}

// A step may be longer than what is searched; the first one is taken in any case.
Moment Schedule::SearchEnd(Moment from) const { return from + calendarPeriod + StepLength(steps); }

std::size_t Schedule::ExclusionOf(Day day) const {
    const ExcludedDays& excluded = recurrence.excluded;
    const std::size_t dayOfWeek = weekday{day}.c_encoding();
    if (excluded[dayOfWeek]) return dayOfWeek;
    if (excluded[excludedHolidays] && holidays.Contain(day)) return excludedHolidays;
    if (excluded[excludedDaysAfter] && holidays.Contain(day - days{1})) return excludedDaysAfter;
    return notExcluded;
}

// Of a schedule that never runs: what takes its runs away, up to its end.
ExcludedDays Schedule::ExclusionsMet() const {
    const Moment until = std::min(recurrence.last, SearchEnd(recurrence.first));
    ExcludedDays met;
    for (Moment run = Step(recurrence.first, until); run <= until; run = Step(NextMidnight(run), until))
        met.set(ExclusionOf(DayOf(run)));
    return met;
}

std::string Schedule::WhyNever() const {
    if (recurrence.last < recurrence.first) return "the end comes before the start";
    if (Step(recurrence.first, SearchEnd(recurrence.first)) == noMoment)
        return "its months have no " + DayText(recurrence);
    if (const ExcludedDays met = ExclusionsMet(); met.any()) return ExcludedText(met);
    const bool isWeekly = recurrence.code == RecurrenceCode::Weekly;
    return (isWeekly ? "the end comes before the first " : "the end comes before the first run on the ") +
           DayText(recurrence);
}

}  // namespace NolSchedCtls::inline v1
