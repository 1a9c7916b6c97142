// The runs of entries of each kind, beside libical's iterator over the rule that a calendar file would hold.
#include <libical/ical.h>

#include <array>

#include "bench/claims.h"
#include "bench/open_entry.h"
#include "outlook/recurrence_rule.h"
#include "outlook/schedule.h"

namespace {

using namespace NolSchedCtls;
using namespace NolSchedCtls::Bench;

constexpr DateTime begunLongAgo = 32874.375;  // 1990-01-01 09:00
constexpr DateTime begunToday = 46083.375;    // 2026-03-02 09:00
constexpr DateTime now = begunToday + 0.01;

struct Kind {
    std::string name;
    const char* code;
    int frequency;
    const char* fridays = "Y";
    const char* holidays = "Y";
};

const std::array kinds = {
    Kind{"hourly", "H", 2},
    Kind{"hourly, not on Fridays and holidays", "H", 2, "N", "N"},
    Kind{"daily", "D", 3},
    Kind{"daily, not on Fridays and holidays", "D", 3, "N", "N"},
    Kind{"weekly", "W", 2},
    Kind{"monthly by day", "M", 1},
    Kind{"monthly by weekday", "A", 2},
};

// Twelve holidays a year.
Holidays SomeHolidays() {
    std::vector<DateTime> days;
    for (int day = 32874; day < 50000; day += 30) days.push_back(day);
    return Holidays(days);
}

std::shared_ptr<CNolSchedData> RecordOf(const Kind& kind, DateTime first) {
    auto record = StoredRecord();
    record->FirstDateTime = first;
    record->Periodicity = kind.code;
    record->Frequency = kind.frequency;
    record->IncludeFridays = kind.fridays;
    record->IncludeHolidays = kind.holidays;
    return record;
}

void ExpandYear(icalrecurrencetype rule, icaltimetype start) {
    icalrecur_iterator* const iterator = icalrecur_iterator_new(rule, start);
    for (auto run = start; !icaltime_is_null_time(run) && run.year * 100 + run.month <= 202702;)
        benchmark::DoNotOptimize(run = icalrecur_iterator_next(iterator));
    icalrecur_iterator_free(iterator);
}

void MeasureYear(const Kind& kind, const Holidays& holidays) {
    const auto record = RecordOf(kind, begunToday);
    const Schedule schedule(*record, holidays);
    Measure("year " + kind.name, [schedule] {
        for (const DateTime run : schedule.RunsBetween(begunToday, begunToday + 364))
            benchmark::DoNotOptimize(run);
    });
    const auto rule = icalrecurrencetype_from_string(RecurrenceRule(*record).c_str());
    const auto start = icaltime_from_string("20260302T090000");
    Measure("ical year " + kind.name, [rule, start] { ExpandYear(rule, start); });
}

void MeasureNext(const std::string& name, const Kind& kind, DateTime first, const Holidays& holidays) {
    Measure(name + kind.name, [schedule = Schedule(*RecordOf(kind, first), holidays)] {
        benchmark::DoNotOptimize(schedule.NextAfter(now));
    });
}

// How many runs begin in each hour of a week, of entries of which a fifth is hourly. Reading the records
// counts.
void MeasureWeekLoad(const Holidays& holidays) {
    constexpr std::array<std::size_t, 5> fifths = {1, 3, 4, 5, 6};
    std::vector<std::shared_ptr<CNolSchedData>> records;
    for (const std::size_t kind : fifths) records.push_back(RecordOf(kinds[kind], begunLongAgo));
    records.front()->Frequency = 1;
    Measure("week load", [records, holidays] {
        std::array<int, 7 * 24 + 1> load{};
        for (std::size_t entry = 0; entry < 100000; ++entry) {
            const Schedule schedule(*records[entry % records.size()], holidays);
            for (const DateTime run : schedule.RunsBetween(begunToday, begunToday + 7))
                ++load[static_cast<std::size_t>((run - begunToday) * 24)];
        }
        benchmark::DoNotOptimize(load);
    });
}

}  // namespace

int main(int argc, char** argv) {
    UseMemory();
    const Holidays holidays = SomeHolidays();
    std::vector<Claim> claims;
    for (const Kind& kind : kinds) {
        MeasureYear(kind, holidays);
        MeasureNext("next since 1990 ", kind, begunLongAgo, holidays);
        claims.push_back({"a year of runs, " + kind.name + " / libical", "year " + kind.name,
                          "ical year " + kind.name, 0.05, "", "", true});
        claims.push_back({"the next run since 1990, " + kind.name, "next since 1990 " + kind.name, "", 500});
    }
    MeasureNext("next since today ", kinds.front(), begunToday, holidays);
    claims.push_back({"the next run, hourly, begun in 1990 / begun today", "next since 1990 hourly",
                      "next since today hourly", 2});
    const auto excluded = RecordOf({"", "W", 1, "N"}, begunLongAgo);
    excluded->WhichWeekday = 6;
    Measure("never",
            [schedule = Schedule(*excluded, holidays)] { benchmark::DoNotOptimize(schedule.StateAt(now)); });
    claims.push_back({"that a weekly entry on an excluded day never runs", "never", "", 1e5});
    MeasureWeekLoad(holidays);
    claims.push_back({"runs an hour in a week, of 100,000 entries", "week load", "", 5e8});
    return RunClaims(argc, argv, claims);
}
