#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <optional>
#include <thread>

#include "NolSchedCtls/base/text.h"
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
            for (const auto& published : PublishedClasses().subspan(2))
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

// The tables by name, a letter after each value for what it is: "One(7i, O's, n) Two() ".
std::string Stored(const MemoryStore& store) {
    const auto value = [](const LintelField& field) {
        return FieldToText(field) + "nids"[field.Value.index()];
    };
    const auto row = [&](const MemoryStore::Row& fields) { return "(" + Joined(fields, value) + ")"; };
    return Joined(
        store.tables, [&](const auto& table) { return table.first + Joined(table.second, row, ""); }, " ");
}

TEST(MemoryServices, StoreWhatTheStatementsSay) {
    const auto store = InstallMemoryServices();
    ILintelDb& lintel = LintelDb();
    const std::string values = lintel.JoinValues({"O'Hara''s, ", LintelValue(), 1e-9, ""});
    for (const auto& statement :
         std::vector<std::string>{"INSERT INTO One (Id, T, N, D, E) VALUES (7, " + values + ")",
                                  "INSERT INTO Two (Id, D) VALUES (8, 0.5)",
                                  "INSERT INTO Two (Id) VALUES (9)", "DELETE FROM Two WHERE ID = 9"})
        lintel.ExecuteStatement(statement);
    EXPECT_EQ(Stored(*store), "One(7i, O'Hara''s, s, n, 0.000000d, s) Two(8i, 0.500000d)");
    for (const std::string statement :
         {"", "UPDATE One SET T = 1", "DELETE FROM One", "DELETE FROM One WHERE Id = 8 OR 1 = 1",
          "DELETE FROM One WHERE Id = 'x", "INSERT INTO One (Id, T) VALUES (9)",
          "INSERT INTO One (Id) VALUES (9x)", "INSERT INTO One (Id) VALUES (1e999)",
          "INSERT INTO  (Id) VALUES (9)", "SELECT * FROM One WHERE Id = 8"})
        EXPECT_EQ(FailureOf([&] { lintel.ExecuteStatement(statement); }),
                  "The statement " + Quoted(statement) + " is none that the store in memory understands.");
    EXPECT_TRUE(lintel.OpenRows({"SELECT * FROM Two WHERE Id = 7"})->AtEnd());
    const auto rows = lintel.OpenRows({"SELECT * FROM One WHERE Id = 7"});
    EXPECT_EQ(std::get<double>(rows->Fields("d").Value), 1e-9);
    EXPECT_EQ(FailureOf([&] { rows->Fields("G"); }), "The rows have no column G.");
    InstallServices({});
}

void SetZone(const char* zone) {
#ifdef _WIN32
    _putenv_s("TZ", zone);
    _tzset();
#else
    setenv("TZ", zone, 1);
    tzset();
#endif
}

TEST(MemoryServices, KeepWhatIsShownAndGiveTheRestInEnglish) {
    const auto store = InstallMemoryServices();
    store->documents = {{5, "North", {"NOL Group"}}, {5, "Busy", {"Scenario"}}};
    MessageService().Show("text", 48, "title", 0, 0);
    try {
        throw NolSchedError("refused");
    } catch (const NolSchedError&) {
        LintelFailureReport()->ReportFailure("insert: ");
    }
    const MemoryMessage& shown = store->messages.at(0);
    const CaddisDocumentType scenario = CaddisScenarios().ScenarioDocumentType();
    EXPECT_EQ(Barred(shown.sText, shown.nFlags, shown.sTitle, store->failures.at(0),
                     CaddisStore().FindDocument(scenario, 5)->Name,
                     CaddisStore().DocumentsOfType(scenario).size(), DateSettings().EditDateFormat()),
              "text|48|title|insert: refused|Busy|1|MM/DD/YYYY|");
    EXPECT_EQ(FailureOf([] { DayConversion().DayNumberOfName("Day"); }), "There is no weekday \"Day\".");
    for (const char* zone : {"UTC", "XXX-12"}) {  // the system's clock, on both sides of noon
        SetZone(zone);
        const std::time_t now = std::time(nullptr);
        std::array<char, 32> text{};
        std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", std::localtime(&now));
        EXPECT_NEAR(Clock().Now(), ParseIso(text.data()), 5.0 / 86400) << zone;
    }
    SetZone("");
    InstallServices({});
}

TEST(DateTimes, AreReadWrittenAndSplitToTheNearestSecond) {
    const std::pair<std::string, std::string> texts[] = {{"1899-12-29T12:00", "1899-12-29T12:00:00"},
                                                         {"0100-01-01", "0100-01-01T00:00:00"},
                                                         {"9999-12-31T23:59:59", "9999-12-31T23:59:59"},
                                                         {"2026-03-02 09:05:07.987", "2026-03-02T09:05:07"},
                                                         {"2026-11-31", "There is no day 2026-11-31."},
                                                         {"2026-13-10", "There is no day 2026-13-10."},
                                                         {"0099-12-31", "There is no day 99-12-31."},
                                                         {"2026-03-02T24:00", "There is no time 24:0:0."},
                                                         {"2026-03-02T09:60", "There is no time 9:60:0."},
                                                         {"2026-03-02T09:05:60", "There is no time 9:5:60."}};
    const auto again = [](const std::string& text) {
        std::string read;
        const std::string failure = FailureOf([&] { read = IsoText(ParseIso(text)); });
        return read.empty() ? failure : read;
    };
    for (const auto& [text, read] : texts) EXPECT_EQ(again(text), read);
    for (const std::string text : {"", "2026-3-2", "2026-03-02T", "2026-03-02X09:05", "-026-03-02",
                                   "2026-03--2", "2026-03-02T09:05:00Z"})
        EXPECT_EQ(again(text), "The text \"" + text + "\" is no date-time of the form YYYY-MM-DDTHH:MM:SS.");
    EXPECT_EQ(ParseIso("2036-12-31T12:00"), 50040.5);
    EXPECT_EQ(IsoText(46084 - 1e-7) + IsoText(46084.5 - 1e-7), "2026-03-03T00:00:002026-03-03T12:00:00");
    for (const DateTime dateTime : {std::nan(""), 1e300, -657435.0, 2958466.0})
        EXPECT_NE(FailureOf([=] { DateOf(dateTime); }).find(std::to_string(dateTime)), std::string::npos);
}

TEST(Lintel, ReadsNumbersOutOfFields) {
    const InstalledWorld world;
    const auto number = [](const LintelValue& value) {
        return std::to_string(LintelDb().FieldToNumber({"Duration", value}, -7));
    };
    const std::pair<LintelValue, const char*> good[] = {
        {{}, "-7"}, {std::int64_t{2147483647}, "2147483647"}, {10.0, "10"}, {"12", "12"}};
    for (const auto& [value, text] : good) EXPECT_EQ(number(value), text);
    const std::pair<LintelValue, std::string> bad[] = {
        {std::int64_t{2147483648}, "2147483648"},
        {10.5, "10.500000"},
        {1e10, "10000000000"},
        {"12x", "12x"},
        {std::string(59, '9') + "\u00e9", std::string(59, '9') + "..."}};
    for (const auto& [value, text] : bad)
        EXPECT_EQ(FailureOf([&, &held = value] { number(held); }),
                  "The column Duration holds \"" + text + "\", which is no 32-bit number.");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
