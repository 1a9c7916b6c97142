#include <gtest/gtest.h>

#include <sstream>

#include "records/sql.h"
#include "records/study_kinds.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {

namespace {

constexpr const char* insertHead =
    "INSERT INTO NOL_Override (NOL_OverrideId, Type, ScenarioId, Duration, Polling_Interval, Retrieve_Delay, "
    "ClearLog) VALUES (";

// Without what is the same in every statement: "DELETE 42; INSERT 42,'HOM Study',...; ".
std::string Shortened(std::string trace) {
    const std::pair<std::string, std::string> parts[] = {
        {insertHead, "INSERT "}, {"); ", "; "}, {"FROM NOL_Override WHERE NOL_OverrideId = ", ""}};
    for (const auto& [part, replacement] : parts)
        for (auto at = trace.find(part); at != std::string::npos; at = trace.find(part))
            trace.replace(at, part.size(), replacement);
    return trace;
}

std::shared_ptr<CNolOverride> Override(const std::string& type) {
    auto item = std::make_shared<CNolOverride>();
    item->Initialize(7, type, 12, -1, 0, 5, "x");
    return item;
}

std::string Flags(const CNolSchedData& record) {
    return record.HomOvr + "," + record.PlmOvr + "," + record.RfcOvr + "," + record.VcsOvr;
}

std::string Columns(const CNolSchedData& r) {
    std::ostringstream text;
    text << r.EditorName << "|" << r.Id << "|" << IsoText(r.FirstDateTime) << "|" << IsoText(r.FinalDateTime)
         << "|" << r.WhichMonthDate << "|" << r.WhichWeek << "|" << r.WhichWeekday << "|" << r.Periodicity << "|"
         << r.Frequency << "|" << r.ScheduleActive << "|" << r.IncludeMondays << r.IncludeTuesdays
         << r.IncludeWednesdays << r.IncludeThursdays << r.IncludeFridays << r.IncludeSaturdays
         << r.IncludeSundays << r.IncludeHolidays << r.IncludeDayAfterHol << "|" << r.ClientMachineId << "|"
         << r.RptGrpId << "|" << r.RunMode << "|" << r.RetrieveMode << "|" << r.AutoPurge << "|"
         << r.PurgeInterval << "|" << r.SubFolderName << "|" << r.CreateFiles << "|" << Flags(r) << "|"
         << (r.IsNew ? "new" : "stored");
    return text.str();
}

std::string Overrides(const CNolSchedData& record) {
    std::ostringstream text;
    for (const auto& [key, item] : record.Overrides())
        text << key << "=" << item->NOL_OverrideId << " " << item->OverrideType << " " << item->ScenarioId << " "
             << item->Duration << " " << item->Polling_Interval << " " << item->Retrieve_Delay << " "
             << item->ClearLog << "; ";
    return text.str();
}

InitEditArguments StoredEntry() {
    return {nullptr, "Nightly", 42,  46083.25, 50040, 11,  2,   3,   "A", 4,   "act", "m", "t",    "w",
            "h",     "f",       "s", "u",      "o",   "a", 901, 902, "S", "M", "P",   33,  "Sub", "C"};
}

TEST(Records, NewEntryHasTheDefaults) {
    const InstalledWorld world;
    CNolSchedData record;
    EXPECT_EQ(Columns(record),
              "|0|1899-12-30T00:00:00|1899-12-30T00:00:00|0|0|0||0|||0|0||||0|||,,,|stored");
    record.Id = 5;
    record.InitNew(nullptr, false, 902, "Nightly");
    EXPECT_EQ(Columns(record),
              "Nightly|5|2026-03-02T00:00:00|2036-12-31T00:00:00|0|1|1|O|1|Y|YYYYYYYYY|0|902|S|A|Y|30||N|,,,|new");
    record.InitNew(nullptr, true, 903, "Now");
    EXPECT_EQ(Columns(record),
              "Now|5|2026-03-02T00:00:00|2036-12-31T00:00:00|0|1|1|O|1|Y|YYYYYYYYY|0|903|I|A|Y|7||N|,,,|new");
}

TEST(Records, NewEntryKeepsTheStepsBeforeAnOptionThatIsNoNumber) {
    InstalledWorld world;
    world.scheduledDays = "30 days";
    CNolSchedData record;
    EXPECT_EQ(FailureOf([&] { record.InitNew(nullptr, false, 902, "Nightly"); }),
              "The option \"Days\" of a new entry is \"30 days\", which is no 32-bit number.");
    EXPECT_EQ(Columns(record),
              "Nightly|0|1899-12-30T00:00:00|1899-12-30T00:00:00|0|0|0||0|||0|0|S|A|Y|0|||,,,|stored");
}

TEST(Records, StoredEntryTakesItsColumnsAndRows) {
    InstalledWorld world;
    world.rows = {OverrideRow(42, "VCSA Study", 0, 30, 0, 5, ""), OverrideRow(42, "Other", 3, 0, 4, 0, "log"),
                  OverrideRow(42, "HOM Study", 12, 0, 0, 0, "")};
    CNolSchedData record;
    record.IsNew = true;
    record.InitEdit(StoredEntry());
    EXPECT_EQ(world.trace, "SELECT * FROM NOL_Override WHERE NOL_OverrideId = 42; ");
    EXPECT_EQ((OpenRowsArguments{}), (OpenRowsArguments{"", 0, "", 0, "", "", 60}));
    EXPECT_EQ(Columns(record),
              "Nightly|42|2026-03-02T06:00:00|2036-12-31T00:00:00|11|2|3|A|4|act|mtwhfsuoa|901|902|S|M|P|33|Sub|C"
              "|Y,,,Y|stored");
    EXPECT_EQ(Overrides(record),
              "VCSA Study=42 VCSA Study 0 30 0 5 ; Other=42 Other 3 0 4 0 log; HOM Study=42 HOM Study 12 0 0 0 ; ");
    EXPECT_THROW(record.InitEdit(StoredEntry()), DuplicateKeyError);
}

TEST(Records, StoredEntryKeepsItsColumnsWhenTheRowsFail) {
    const struct {
        int failingStatement;
        std::vector<Row> rows;
        const char* failure;
        const char* overrides;
    } cases[] = {
        {1, {}, "statement refused", ""},
        {0,
         {OverrideRow(42, "PLM Study", 1, 0, 0, 0, ""), OverrideRow(42, "plm study", 2, 0, 0, 0, "")},
         "The key \"plm study\" is already in the collection.",
         "PLM Study=42 PLM Study 1 0 0 0 ; "},
        {0,
         {OverrideRow(42, "HOM Study", 1LL << 31, 0, 0, 0, "")},
         "The column ScenarioId holds \"2147483648\", which is no 32-bit number.",
         ""},
    };
    for (const auto& c : cases) {
        InstalledWorld world;
        world.failingStatement = c.failingStatement;
        world.rows = c.rows;
        CNolSchedData record;
        record.IsNew = true;
        EXPECT_EQ(FailureOf([&] { record.InitEdit(StoredEntry()); }), c.failure);
        EXPECT_EQ(Overrides(record), c.overrides);
        EXPECT_EQ(std::to_string(record.Id) + record.CreateFiles + (record.IsNew ? "new" : "stored"), "42Cnew");
    }
}

TEST(Records, RunModeIsComparedExactly) {
    InstalledWorld world;
    for (const char* mode : {"I", "i", " I", "II", "S", ""}) {
        CNolSchedData record;
        record.RunMode = mode;
        record.FirstDateTime = 100.5;
        record.FinalDateTime = 200.25;
        const bool immediate = std::string(mode) == "I";
        EXPECT_EQ(record.IsOverride(), immediate) << mode;
        EXPECT_EQ(record.DBFirstDateTime().Value, immediate ? world.now : 100.5);
        EXPECT_EQ(record.DBFirstDateTime().IsImmediate, immediate);
        EXPECT_EQ(record.DBFinalDateTime().Value, 200.25);
        EXPECT_FALSE(record.DBFinalDateTime().IsImmediate);
    }
}

TEST(OverrideSet, StatementsAreExact) {
    InstalledWorld world;
    MSQL::DeleteNolOverrides(std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(world.TakeTrace(), "DELETE FROM NOL_Override WHERE NOL_OverrideId = -2147483648; ");
    MSQL::InsertNolOverride(*Override("RF Call Trace Study"), 0);
    EXPECT_EQ(world.TakeTrace(), std::string(insertHead) + "0,'RF Call Trace Study',12,NULL,0,5,'x'); ");
}

TEST(OverrideSet, SavesTheObjectsWhoseTypeIsOn) {
    const struct {
        bool isNew;
        std::vector<std::pair<const char*, const char*>> objects;  // key and type
        std::string flags;                                         // HOM, PLM, RFC, VCSA; '-' for empty
        int failingStatement;
        const char* failure;
        const char* trace;
    } cases[] = {
        {true, {}, "YYYY", 0, "no failure", ""},
        {false, {}, "YYYY", 0, "no failure", "DELETE 42; "},
        {false, {{"HOM Study", "HOM Study"}, {"PLM Study", "PLM Study"}}, "N-yN", 0, "no failure", "DELETE 42; "},
        {false,
         {{"VCSA Study", "VCSA Study"}, {"PLM Study", "PLM Study"}, {"HOM Study", "HOM Study"}},
         "YN-Y",
         0,
         "no failure",
         "DELETE 42; INSERT 42,'VCSA Study',12,NULL,0,5,'x'; INSERT 42,'HOM Study',12,NULL,0,5,'x'; "},
        {true,
         {{"PLM Study", "HOM Study"}, {"HOM Study", "RF Call Trace Study"}, {"Other", "hom study"}},
         "YYNY",
         0,
         "no failure",
         "INSERT 42,'HOM Study',12,NULL,0,5,'x'; "},
        {false,
         {{"HOM Study", "HOM Study"}, {"PLM Study", "PLM Study"}},
         "YYYY",
         2,
         "no failure",
         "DELETE 42; INSERT 42,'HOM Study',12,NULL,0,5,'x'; report; INSERT 42,'PLM Study',12,NULL,0,5,'x'; "},
        {false, {{"HOM Study", "HOM Study"}}, "YYYY", 1, "statement refused", "DELETE 42; "},
    };
    for (const auto& c : cases) {
        InstalledWorld world;
        world.failingStatement = c.failingStatement;
        CNolSchedData record;
        record.Id = 42;
        record.IsNew = c.isNew;
        for (const auto& [key, type] : c.objects) record.AddNolOverride(Override(type), key);
        for (std::size_t i = 0; i < 4; ++i)
            record.*studyKinds.at(i).pFlag = c.flags[i] == '-' ? std::string() : std::string(1, c.flags[i]);
        EXPECT_EQ(FailureOf([&] { EXPECT_EQ(&record.SaveNolOverrides(), &record); }), c.failure);
        EXPECT_EQ(Shortened(world.trace), c.trace) << c.flags;
        EXPECT_EQ(record.IsNew, c.isNew);
    }
}

TEST(OverrideSet, FlagsFollowExactKeysAlone) {
    CNolSchedData record;
    record.AddNolOverride(Override("HOM Study"), "hom study");
    EXPECT_EQ(record.GetOverride("HOM Study")->OverrideType, "HOM Study");
    EXPECT_THROW(record.AddNolOverride(Override("HOM Study"), "HOM Study"), DuplicateKeyError);
    EXPECT_NE(FailureOf([&] { record.AddNolOverride(nullptr, "PLM Study"); }).find("PLM Study"), std::string::npos);
    EXPECT_EQ(Flags(record), ",,,");
    for (const StudyKind& kind : studyKinds) {
        record.RemoveNolOverride(kind.sKey);
        EXPECT_EQ(record.GetOverride(kind.sKey), nullptr);
        record.AddNolOverride(Override("any"), std::string(kind.sKey));
        EXPECT_EQ(record.*kind.pFlag, "Y");
        record.RemoveNolOverride(kind.sKey);
    }
    EXPECT_EQ(Flags(record) + Overrides(record), "Y,Y,Y,Y");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
