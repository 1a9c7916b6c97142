#include <gtest/gtest.h>

#include <random>

#include "tests/library/test_schedule_tools.h"

namespace NolSchedCtls::Testing {
namespace {

using Texts = std::vector<std::string>;

const Texts periods = {"Once", "Hourly", "Daily", "Weekly", "Monthly"};
constexpr std::size_t limits[] = {0, 24, 7, 52, 12};
const Texts fullNames = {"Day", "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
const Texts lowNumbers = {"1st", "2nd", "3rd", "4th", "Last"};

bool Has(const Texts& list, const std::string& text) {
    return std::count(list.begin(), list.end(), text) > 0;
}

constexpr int impossible = -1;

// What the tab should look like, told by states and moves instead of by clicks. Each act gives how often it
// reports, or that a user cannot do it.
struct Model {
    Texts longNumbers, numbers = longNumbers, names = {fullNames.begin() + 1, fullNames.end()};
    std::string period = "Hourly", name = "Sunday", number = "1st";
    std::size_t limit = 24, frequency = 1;
    bool ends = false, endFieldsOn = true;

    bool HasName() const { return period == "Monthly" || period == "Weekly"; }
    bool CanExclude(std::size_t box) const {
        return period != "Once" && (box >= 7 || !HasName() || name == "Day");
    }

    std::string State() const {
        const auto list = [](const std::string& text, std::size_t size) {
            return " " + text + "/" + std::to_string(size);
        };
        std::string boxes;
        for (std::size_t box = 0; box < 9; ++box) boxes += CanExclude(box) ? '1' : '0';
        return period + list(std::to_string(frequency), limit) + list(name, names.size()) +
               list(number, numbers.size()) + " " + boxes + (ends ? " 1 " : " 0 ") +
               (period == "Once" ? "-v " : "ev ") + (endFieldsOn ? "e" : "-") + (ends ? "v " : "- ") +
               (endFieldsOn ? "e" : "-") + (ends ? "-" : "v");
    }

    void TakeName(const std::string& nameA) {
        name = nameA;
        numbers = name == "Day" ? longNumbers : lowNumbers;
        if (!Has(numbers, number)) number = "1st";
    }
    int PickPeriod(std::size_t index) {
        if (std::exchange(period, periods[index]) == periods[index]) return 0;
        if (period != "Daily") endFieldsOn = period != "Once";
        if (period == "Once") return std::exchange(ends, false) ? 2 : 1;
        limit = limits[index];
        frequency = 1;
        if (!HasName()) return 2;
        names.assign(fullNames.begin() + (period == "Weekly" ? 1 : 0), fullNames.end());
        TakeName(names.front());
        return 3;
    }
    int PickName(const std::string& nameA) {
        if (!HasName() || !Has(names, nameA)) return impossible;
        if (nameA == name) return 0;
        TakeName(nameA);
        return 1;
    }
    int PickNumber(const std::string& numberA) {
        if (period != "Monthly" || !Has(numbers, numberA)) return impossible;
        if (std::exchange(number, numberA) == numberA) return 0;
        names.assign(fullNames.begin(),
                     Has(lowNumbers, number) || number == "5th" ? fullNames.end() : fullNames.begin() + 1);
        return 1;
    }
    int PickFrequency(std::size_t frequencyA) {
        if (period == "Once" || frequencyA > limit) return impossible;
        return std::exchange(frequency, frequencyA) == frequencyA ? 0 : 1;
    }
    int ClickEnd() {
        if (period == "Once") return impossible;
        ends = !ends;
        endFieldsOn = true;
        return 1;
    }
};

struct Walker {
    OpenTab open{RecordOf("H")};
    XNolScheduleTab& tab = open.tab;
    Model model{tab.cboDayNum.Entries()};
    std::mt19937 random{20260302};
    std::string act;

    std::size_t Roll(std::size_t count) { return random() % count; }

    void Expect(int reports, bool done) {
        ASSERT_EQ(done, reports != impossible) << act;
        ASSERT_EQ(open.changes, std::max(reports, 0)) << act;
    }

    void Step() {
        open.changes = 0;
        const std::size_t kind = Roll(15), index = Roll(9);
        const std::string &name = fullNames[Roll(8)], &number = model.longNumbers[Roll(29)];
        const std::size_t frequency = Roll(52) + 1;
        const DateTime day = 46000.0 + static_cast<double>(Roll(4000));
        act = "from " + ScheduleSentence(tab) + ": " + std::to_string(kind) + " " + name + " " + number;
        if (kind < 3) return Expect(model.PickPeriod(index % 5), tab.cboPeriod.Pick(periods[index % 5]));
        if (kind < 6) return Expect(model.PickName(name), tab.cboDayName.Pick(name));
        if (kind < 10) return Expect(model.PickNumber(number), tab.cboDayNum.Pick(number));
        if (kind < 12)
            return Expect(model.PickFrequency(frequency), tab.cboFrequency.Pick(std::to_string(frequency)));
        if (kind == 12) return Expect(model.ClickEnd(), tab.chkEndDate.Click());
        if (kind == 13)
            return Expect(model.CanExclude(index) ? 1 : impossible, tab.cbExcludeDay[index].Click());
        const bool canPick = model.ends && day <= 49674;
        Expect(canPick ? 1 : impossible, tab.SSDEndDate.PickDate(day));
    }

    void ExpectSameInAFreshTab() {
        const std::string saved = open.Saved();
        OpenTab fresh(open.record);
        ASSERT_EQ(ScheduleSentence(fresh.tab), ScheduleSentence(tab)) << act;
        const bool isLost = model.period == "Once" && model.frequency > 24;  // not in a new tab's hidden list
        ASSERT_TRUE(isLost || fresh.Saved() == saved) << act;
        ASSERT_TRUE(fresh.tab.cboPeriod.Pick(model.period == "Weekly" ? "Monthly" : "Weekly"));
        ASSERT_EQ(fresh.changes, 3) << "the load has left the day lists in step";
    }
};

TEST(ScheduleWalk, AnyRowOfActsKeepsTheTabInItsStates) {
    const InstalledWorld world;
    Walker walker;
    for (int step = 0; step < 100000 && !testing::Test::HasFatalFailure(); ++step) {
        ASSERT_NO_THROW(walker.Step()) << walker.act;
        ASSERT_EQ(StateOf(walker.tab), walker.model.State()) << walker.act;
        if (step % 50 == 0) walker.ExpectSameInAFreshTab();
    }
}

}  // namespace
}  // namespace NolSchedCtls::Testing
