// The runs of many entries, merged.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>

#include "host/entries/entry_outlook.h"

namespace NolSchedCtls::Testing {

namespace {

constexpr DateTime from = 46083;  // 2026-03-02
constexpr DateTime to = from + 400;

// Of every density: some run each half hour, some once in years, and some have ended.
Recurrence RandomRule(std::mt19937& random) {
    const auto upTo = [&random](int most) { return std::uniform_int_distribution(0, most)(random); };
    constexpr RecurrenceCode codes[] = {RecurrenceCode::Once, RecurrenceCode::Hourly, RecurrenceCode::Daily,
                                        RecurrenceCode::Weekly};
    Recurrence rule;
    rule.code = codes[upTo(3)];
    rule.frequency = rule.code == RecurrenceCode::Hourly ? 30 * (1 + upTo(200)) : 1 + upTo(40);
    rule.first = MomentOf(from - 100 + upTo(300) + upTo(23) / 24.0);
    rule.last = upTo(2) == 0 ? rule.first + std::chrono::days(upTo(200)) : latestMoment;
    rule.weekday = std::chrono::weekday(std::chrono::floor<std::chrono::days>(rule.first));
    return rule;
}

}  // namespace

TEST(MergedRuns, AreThoseOfEachEntryInOrderOfTimeThenId) {
    std::mt19937 random(1);
    for (const int entries : {0, 1, 2, 40, 500}) {
        std::vector<std::pair<DateTime, std::int32_t>> expected;
        std::vector<std::pair<DateTime, std::int32_t>> merged;
        MergedRuns runs(from, to);
        for (std::int32_t id = 1; id <= entries; ++id) {
            const Schedule schedule(RandomRule(random), {});
            const std::size_t before = expected.size();
            for (const DateTime at : schedule.RunsBetween(from, to)) expected.emplace_back(at, id);
            EXPECT_EQ(runs.Add(id, {}, schedule), expected.size() > before);
        }
        std::ranges::sort(expected);
        for (; !runs.AtEnd(); runs.MoveNext()) merged.emplace_back(runs.Current().at, runs.Current().id);
        EXPECT_TRUE(merged == expected) << entries << " entries, " << merged.size() << " runs";
        EXPECT_EQ(expected.empty(), entries == 0);
    }
}

}  // namespace NolSchedCtls::Testing
