// When an entry runs, and why another never does: the outlook, without tabs and services.
#include <iostream>

#include "outlook/description.h"
#include "outlook/schedule.h"

using namespace NolSchedCtls;

int main() {
    // [runs] A record as the host has read it; the holidays are the host's own.
    CNolSchedData record;
    record.Periodicity = "A";
    record.WhichWeekday = 6;
    record.Frequency = 2;
    record.FirstDateTime = ParseIso("2026-10-01T22:30");
    record.FinalDateTime = ParseIso("2027-12-31T22:30");
    record.ScheduleActive = record.IncludeFridays = "Y";
    record.IncludeHolidays = record.IncludeDayAfterHol = "N";
    const Holidays holidays({ParseIso("2027-04-29")});

    const Schedule schedule(record, holidays);
    std::cout << DescribeSchedule(record) << '\n';
    for (const DateTime run : schedule.RunsBetween(ParseIso("2026-11-01"), ParseIso("2027-08-31T23:59:59")))
        std::cout << IsoText(run) << '\n';

    record.IncludeFridays = "N";
    const auto [state, reason] = Schedule(record, holidays).StateAt(ParseIso("2026-11-01"));
    std::cout << TextOf(state) << ": " << reason << '\n';
    // [runs]
}
