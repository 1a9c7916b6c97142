#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <thread>

#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {

namespace {

class TracingProvider : public ServiceProvider {
  public:
    explicit TracingProvider(std::string& traceA) : trace(traceA) { trace += "provider "; }
    ~TracingProvider() override { trace += "end "; }
    std::unique_ptr<ILintelDb> CreateLintelDb() override { return nullptr; }
    std::unique_ptr<ILintelFailureReport> CreateLintelFailureReport() override { return nullptr; }
    std::unique_ptr<ICaddisStore> CreateCaddisStore() override { return nullptr; }
    std::unique_ptr<IMessageService> CreateMessageService() override { return nullptr; }
    std::unique_ptr<IClock> CreateClock() override {
        trace += "clock ";
        return ServiceProvider::CreateClock();
    }

  private:
    std::string& trace;
};

TEST(Services, AreMadeOnceForEachThreadAtFirstUse) {
    std::string trace;
    const auto install = [&trace] {
        InstallServices([&trace] { return std::make_unique<TracingProvider>(trace); });
    };
    const auto traceOf = [&trace](const auto& act) {
        act();
        return std::exchange(trace, {});
    };
    const auto use = [] { EXPECT_EQ(&Clock(), &Clock()); };
    EXPECT_EQ(traceOf(install), "");
    EXPECT_EQ(traceOf(use), "provider clock ");
    EXPECT_EQ(traceOf([&] { std::thread(use).join(); }), "provider clock end ");
    EXPECT_EQ(traceOf(use), "");
    EXPECT_EQ(traceOf(install), "end ");
    EXPECT_EQ(traceOf(use), "provider clock ");
    EXPECT_EQ(traceOf([&] { std::thread(install).join(); }), "");
    EXPECT_EQ(traceOf(use), "end provider clock ");
    EXPECT_EQ(traceOf([] { InstallServices({}); }), "end ");
}

TEST(Services, AreAClearErrorWhileNoneAreInstalled) {
    const std::pair<const char*, void (*)()> uses[] = {
        {"LintelDb", [] { LintelDb(); }},
        {"CaddisStore", [] { CaddisStore(); }},
        {"MessageService", [] { MessageService(); }},
        {"CaddisPickerStates", [] { CaddisPickerStates(); }},
        {"CaddisScenarios", [] { CaddisScenarios(); }},
        {"DocumentTypes", [] { DocumentTypes(); }},
        {"CodeTables", [] { CodeTables(); }},
        {"DayConversion", [] { DayConversion(); }},
        {"Clock", [] { Clock(); }},
        {"LintelFailureReport", [] { LintelFailureReport(); }},
    };
    for (const auto& [name, use] : uses)
        EXPECT_EQ(FailureOf(use), "The service " + std::string(name) +
                                      " is not there: no services are installed (InstallServices).");
}

TEST(DateTimes, ReadAndWriteTheSameMoment) {
    const struct {
        const char* text;
        DateTime dateTime;
        const char* iso;
    } moments[] = {
        {"1899-12-30", 0.0, "1899-12-30T00:00:00"},
        {"1899-12-29T12:00", -0.5, "1899-12-29T12:00:00"},
        {"2036-12-31", 50040.0, "2036-12-31T00:00:00"},
        {"2026-03-02 09:05", 46083.0 + 545 / 1440.0, "2026-03-02T09:05:00"},
        {"2024-02-29T23:59:59.987", 45351.0 + 86399 / 86400.0, "2024-02-29T23:59:59"},
        {"0100-01-01", -657434.0, "0100-01-01T00:00:00"},
        {"9999-12-31T23:59:59", 2958465.0 + 86399 / 86400.0, "9999-12-31T23:59:59"},
    };
    for (const auto& moment : moments) {
        EXPECT_DOUBLE_EQ(ParseIso(moment.text), moment.dateTime) << moment.text;
        EXPECT_EQ(IsoText(moment.dateTime), moment.iso);
    }
}

TEST(DateTimes, SplitToTheNearestSecond) {
    for (int minute = 0; minute < 1440; ++minute) {
        const DateTimeParts expected{2026, 3, 2, minute / 60, minute % 60, 0};
        EXPECT_EQ(SplitDateTime(46083 + minute / 1440.0), expected) << minute;
        EXPECT_EQ(SplitDateTime(46083 + minute / 60 / 24.0 + minute % 60 / 1440.0 - 1e-7), expected) << minute;
    }
    EXPECT_EQ(DateOf(46083 - 1e-7), 46083);
    EXPECT_EQ(DateOf(46083 + 86399 / 86400.0), 46083);
}

TEST(DateTimes, RefuseWhatNoCalendarOrClockHas) {
    const std::pair<const char*, const char*> texts[] = {
        {"", "\"\""},
        {"2026-3-2", "\"2026-3-2\""},
        {"2026-03-02T", "\"2026-03-02T\""},
        {"2026-03-02X09:05", "\"2026-03-02X09:05\""},
        {"2026-03-02T09", "\"2026-03-02T09\""},
        {"2026-03-02T09:05:00Z", "\"2026-03-02T09:05:00Z\""},
        {"-026-03-02", "\"-026-03-02\""},
        {"2026-03--2", "\"2026-03--2\""},
        {"2026-02-29", " 2026-2-29."},
        {"2026-13-01", " 2026-13-1."},
        {"0099-12-31", " 99-12-31."},
        {"2026-03-02T24:00", " 24:0:0."},
        {"2026-03-02T09:05:60", " 9:5:60."},
    };
    for (const auto& [text, named] : texts)
        EXPECT_NE(FailureOf([t = text] { ParseIso(t); }).find(named), std::string::npos) << text;
    for (const DateTime dateTime : {std::numeric_limits<double>::quiet_NaN(), 1e300, -657435.0, 2958466.0})
        EXPECT_NE(FailureOf([=] { SplitDateTime(dateTime); }).find(std::to_string(dateTime)), std::string::npos);
}

TEST(KeyedCollections, IgnoreCaseKeepOrderAndNameBadKeys) {
    KeyedCollection<int> items;
    const auto order = [&items] {
        std::ostringstream text;
        for (const auto& [key, item] : items) text << key << item << " ";
        return text.str();
    };
    items.Add(1, "Zebra");
    items.Add(2);
    items.Add(3);
    items.Add(4, "HOM Study");
    EXPECT_THROW(items.Add(5, "hom sTUDY"), DuplicateKeyError);
    EXPECT_EQ(order(), "Zebra1 2 3 HOM Study4 ");
    EXPECT_EQ(items.Item("HOM STUDY"), 4);
    EXPECT_EQ(items.Item(4), 4);
    EXPECT_EQ(items.Find("HOM  Study"), nullptr);
    EXPECT_THROW(items.Item(""), MissingKeyError);
    EXPECT_THROW(items.Item(0), MissingKeyError);
    EXPECT_EQ(FailureOf([&] { items.Item(5); }), "The collection has no item 5; it holds 4.");
    EXPECT_EQ(FailureOf([&] { items.Remove("Zebr"); }), "The collection has no key \"Zebr\".");
    items.Remove("zEBRA");
    EXPECT_EQ(order(), "2 3 HOM Study4 ");
}

TEST(Lintel, ReadsNumbersOutOfFields) {
    const InstalledWorld world;
    const auto refused = [](const char* value) {
        return "The column Duration holds \"" + std::string(value) + "\", which is no 32-bit number.";
    };
    const std::pair<LintelValue, std::string> values[] = {
        {{}, "-7"},
        {std::int64_t{2147483647}, "2147483647"},
        {std::int64_t{-2147483648LL}, "-2147483648"},
        {std::int64_t{2147483648LL}, refused("2147483648")},
        {10.0, "10"},
        {10.5, refused("10.500000")},
        {std::string("12"), "12"},
        {std::string("12x"), refused("12x")},
        {std::string(), refused("")},
    };
    for (const auto& [value, expected] : values) {
        std::string read;
        const auto failure =
            FailureOf([&, v = value] { read = std::to_string(LintelDb().FieldToNumber({"Duration", v}, -7)); });
        EXPECT_EQ(read.empty() ? failure : read, expected);
    }
}

TEST(StandardServices, SpeakEnglish) {
    const InstalledWorld world;
    std::string days, periods, weekdays;
    for (const auto& [key, name] : CodeTables().MonthDayNames()) days += name + " ";
    for (const auto& [key, name] : CodeTables().PeriodNames()) periods += key + "=" + name + " ";
    for (const auto& [key, row] : CodeTables().DayNames()) weekdays += row.Item("UIVal") + " ";
    EXPECT_EQ(days,
              "1st 2nd 3rd 4th 5th 6th 7th 8th 9th 10th 11th 12th 13th 14th 15th 16th 17th 18th 19th 20th "
              "21st 22nd 23rd 24th 25th 26th 27th 28th Last ");
    EXPECT_EQ(periods, "O=Once H=Hourly D=Daily W=Weekly A=Monthly ");
    EXPECT_EQ(weekdays, "Day Sunday Monday Tuesday Wednesday Thursday Friday Saturday ");
    EXPECT_EQ(DayConversion().DayNameOfNumber(1) + DayConversion().DayNameOfNumber(7), "SundaySaturday");
    EXPECT_EQ(DayConversion().DayNumberOfName("Saturday"), 7);
    for (const std::int32_t number : {-1, 0, 8})
        EXPECT_NE(FailureOf([=] { DayConversion().DayNameOfNumber(number); }).find(std::to_string(number)),
                  std::string::npos);
    EXPECT_EQ(FailureOf([] { DayConversion().DayNumberOfName("Day"); }), "There is no weekday \"Day\".");
}

TEST(Messages, QuoteLongValuesUpToACharactersBorder) {
    EXPECT_EQ(Quoted(std::string(59, 'a') + "\xC3\xA9z"), '"' + std::string(59, 'a') + "...\"");
    EXPECT_EQ(Quoted(std::string(60, 'a')), '"' + std::string(60, 'a') + '"');
}

}  // namespace

}  // namespace NolSchedCtls::Testing
