#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <thread>

#include "NolSchedCtls/library/catalogue.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

TEST(Services, AreMadeForEachThreadAtFirstUseAndReplacedByTheNextInstallation) {
    {
        InstalledWorld world;
        EXPECT_EQ(world.providers, 0);
        const auto use = [] { EXPECT_EQ(&Clock(), &Clock()); };
        use();
        std::thread(use).join();
        EXPECT_EQ(world.providers, 2);
        std::optional<InstalledWorld> next;
        std::thread([&next] { next.emplace().now = 1; }).join();
        EXPECT_EQ(Clock().Now(), 1);
    }
    EXPECT_EQ(FailureOf([] { Clock(); }),
              "The service Clock is not there: no services are installed (InstallServices).");
}

TEST(Services, LetTwoThreadsEditEntriesOfTheirOwn) {
    InstallServices([] {
        thread_local World world;
        return MakeProvider(world);
    });
    const auto edit = [] {
        for (int round = 0; round < 100; ++round) {
            const auto record = std::make_shared<CNolSchedData>();
            record->InitNew(nullptr, false, 0, "Nightly");
            for (const auto& published : PublishedClasses())
                if (published.kind == ClassKind::Control)
                    CreateControl(published.sProgId)->LoadData(record, "", std::make_shared<CPaviseNotify>());
            record->AddNolOverride(MakeOverride("HOM Study"), "HOM Study");
            EXPECT_EQ(&record->SaveNolOverrides(), record.get());
        }
    };
    std::thread other(edit);
    edit();
    other.join();
    InstallServices({});
}

TEST(DateTimes, ReadWriteAndSplitToTheNearestSecond) {
    const std::pair<const char*, DateTime> moments[] = {
        {"1899-12-30T00:00:00", 0.0},       {"1899-12-29T12:00:00", -0.5},
        {"2036-12-31T00:00:00", 50040.0},   {"2024-02-29T23:59:59", 45351.0 + 86399 / 86400.0},
        {"0100-01-01T00:00:00", -657434.0}, {"9999-12-31T23:59:59", 2958465.0 + 86399 / 86400.0}};
    for (const auto& [iso, dateTime] : moments) {
        EXPECT_DOUBLE_EQ(ParseIso(iso), dateTime) << iso;
        EXPECT_EQ(IsoText(dateTime), iso);
    }
    EXPECT_EQ(IsoText(ParseIso("2026-03-02 09:05:07.987")), "2026-03-02T09:05:07");
    for (int minute = 0; minute < 1440; ++minute) {
        const DateTimeParts parts{2026, 3, 2, minute / 60, minute % 60, 0};
        EXPECT_EQ(SplitDateTime(46083 + minute / 1440.0), parts);
        EXPECT_EQ(SplitDateTime(46083 + minute / 60 / 24.0 + minute % 60 / 1440.0 - 1e-7), parts);
    }
    EXPECT_EQ(DateOf(46083 - 1e-7), 46083);
}

TEST(DateTimes, RefuseWhatNoCalendarOrClockHas) {
    for (const std::string text :
         {"", "2026-3-2", "2026-03-02T", "2026-03-02X09:05", "2026-03-02T09", "-026-03-02", "2026-03--2",
          "2026-03-02T09:05:00Z", "2026-11-31", "2026-13-10"})
        EXPECT_NE(FailureOf([&] { ParseIso(text); }).find(text), std::string::npos) << text;
    for (const char* text : {"0099-12-31", "2026-03-02T24:00", "2026-03-02T09:60", "2026-03-02T09:05:60"})
        EXPECT_THROW(ParseIso(text), NolSchedError) << text;
    for (const DateTime dateTime : {std::nan(""), 1e300, -657435.0, 2958466.0})
        EXPECT_NE(FailureOf([=] { DateOf(dateTime); }).find(std::to_string(dateTime)), std::string::npos);
}

TEST(KeyedCollections, IgnoreCaseKeepOrderAndNameBadKeys) {
    KeyedCollection<int> items;
    for (const char* key : {"Zebra", "", "", "HOM Study"})
        items.Add(static_cast<int>(items.Count()) + 1, key);
    EXPECT_THROW(items.Add(5, "hom sTUDY"), DuplicateKeyError);
    EXPECT_EQ(items.Item("HOM STUDY"), 4);
    EXPECT_EQ(items.Find("HOM  Study"), nullptr);
    EXPECT_THROW(items.Item(""), MissingKeyError);
    EXPECT_EQ(FailureOf([&] { items.Item(5); }), "The collection has no item 5; it holds 4.");
    EXPECT_EQ(FailureOf([&] { items.Remove("Zebr"); }), "The collection has no key \"Zebr\".");
    items.Remove("zEBRA");
    EXPECT_EQ(Barred(items.Count(), items.Item(1), items.Item(2), items.Item(3)), "3|2|3|4|");
}

TEST(Lintel, ReadsNumbersOutOfFields) {
    const InstalledWorld world;
    const std::pair<LintelValue, std::int32_t> good[] = {
        {{}, -7}, {std::int64_t{2147483647}, 2147483647}, {10.0, 10}, {std::string("12"), 12}};
    for (const auto& [value, number] : good)
        EXPECT_EQ(LintelDb().FieldToNumber({"Duration", value}, -7), number);
    for (const LintelValue& value : {LintelValue(std::int64_t{2147483648}), {10.5}, {"12x"}, {""}}) {
        const LintelField field{"Duration", value};
        EXPECT_EQ(FailureOf([&] { LintelDb().FieldToNumber(field, -7); }),
                  "The column Duration holds " + Quoted(FieldToText(field)) + ", which is no 32-bit number.");
    }
}

TEST(DayConversion, RefusesWhatIsNoWeekday) {
    const InstalledWorld world;
    for (const int number : {0, 8}) EXPECT_THROW(DayConversion().DayNameOfNumber(number), NolSchedError);
    EXPECT_EQ(FailureOf([] { DayConversion().DayNumberOfName("Day"); }), "There is no weekday \"Day\".");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
