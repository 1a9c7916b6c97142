#include <gtest/gtest.h>

#include <fstream>

#include "NolSchedCtls/base/text.h"
#include "outlook/description.h"
#include "tests/outlook/entry_line.h"

namespace NolSchedCtls::Testing {
namespace {

const DateTime now = ParseIso("2026-03-02T12:00");
const Holidays threeHolidays{{ParseIso("2026-12-25T08:00"), ParseIso("2026-04-03"), ParseIso("2026-12-25")}};

// The sentence, the first three runs, and the state at noon of 2026-03-02.
std::string TraceOf(const Entry& entry) {
    const Schedule schedule(entry.record, threeHolidays, entry.settings);
    const auto [state, reason] = schedule.StateAt(now);
    const std::string runs = Joined(Taken(schedule.RunsBetween(0, 1e9), 3), IsoText, " ");
    return "    " + DescribeSchedule(entry.record, entry.settings) + (runs.empty() ? "" : "\n    " + runs) +
           "\n    " + std::string(TextOf(state)) + (reason.empty() ? "" : ": " + reason) + "\n";
}

TEST(Outlook, EntriesSayWhenTheyRunOrWhyNever) {
    std::ifstream lines(ENTRIES ".txt");
    std::ostringstream traces, reference;
    for (std::string line; std::getline(lines, line);)
        if (!line.starts_with('#')) traces << line << '\n' << TraceOf(Entry(line));
    if (std::getenv("NOLSCHED_UPDATE") != nullptr) std::ofstream(ENTRIES ".out") << traces.str();
    reference << std::ifstream(ENTRIES ".out").rdbuf();
    EXPECT_EQ(traces.str(), reference.str());
}

TEST(Outlook, ARangeIncludesItsEndsAndTheNextRunLiesAfterTheMoment) {
    const Entry entry("D 1 0/0/1 YYYYYYYYY 2026-03-02T09:05:01 2036-12-31");
    const Schedule schedule(entry.record);
    const DateTime run = ParseIso("2026-03-05T09:05:01"), next = ParseIso("2026-03-06T09:05:01");
    EXPECT_EQ(Taken(schedule.RunsBetween(run, next), 9), (std::vector{run, next}));
    EXPECT_TRUE(Taken(schedule.RunsBetween(next, run), 9).empty());
    EXPECT_EQ(schedule.NextAfter(run), next);
    EXPECT_EQ(schedule.NextAfter(std::nan("")), entry.record.FirstDateTime);
}

}  // namespace
}  // namespace NolSchedCtls::Testing
