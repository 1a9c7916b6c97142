#include <gtest/gtest.h>

#include <regex>

#include "NolSchedCtls/records/sql.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

std::string Columns(const CNolSchedData& r) {
    return Barred(r.EditorName, r.Id, IsoText(r.FirstDateTime), r.FinalDateTime, r.WhichMonthDate,
                  r.WhichWeek, r.WhichWeekday, r.Periodicity, r.Frequency, r.ScheduleActive, r.IncludeMondays,
                  r.IncludeTuesdays, r.IncludeWednesdays, r.IncludeThursdays, r.IncludeFridays,
                  r.IncludeSaturdays, r.IncludeSundays, r.IncludeHolidays, r.IncludeDayAfterHol,
                  r.ClientMachineId, r.RptGrpId, r.RunMode, r.RetrieveMode, r.AutoPurge, r.PurgeInterval,
                  r.SubFolderName, r.CreateFiles, FlagsOf(r), r.IsNew);
}

InitEditArguments StoredEntry() {
    return {nullptr, "Nightly", 42,  46083.25, 50040, 11,  2,   3,   "A", 4,   "on", "m", "t",   "w",
            "h",     "f",       "s", "u",      "o",   "a", 901, 902, "S", "M", "P",  33,  "Sub", "C"};
}

TEST(Records, NewEntryHasTheDefaults) {
    InstalledWorld world;
    CNolSchedData record;
    EXPECT_EQ(Columns(record), "|0|1899-12-30T00:00:00|0|0|0|0||0|||||||||||0|0||||0|||,,,|0|");
    record.Id = 5;
    record.SubFolderName = "left";
    record.InitNew(nullptr, false, 902, "Nightly");
    EXPECT_EQ(Columns(record),
              "Nightly|5|2026-03-02T00:00:00|50040|0|1|1|O|1|Y|Y|Y|Y|Y|Y|Y|Y|Y|Y|0|902|S|A|Y|30||N|,,,|1|");
    record.InitNew(nullptr, true, 903, "Now");
    EXPECT_EQ(Columns(record),
              "Now|5|2026-03-02T00:00:00|50040|0|1|1|O|1|Y|Y|Y|Y|Y|Y|Y|Y|Y|Y|0|903|I|A|Y|7||N|,,,|1|");
}

TEST(Records, StoredEntryTakesItsColumnsAndRows) {
    InstalledWorld world;
    CNolSchedData record;
    for (const auto& item :
         {MakeOverride("VCSA Study", -1, 30), MakeOverride("Other", 3), MakeOverride("HOM Study")})
        MSQL::InsertNolOverride(*item, 42);
    world.statements = 0;
    world.trace.clear();
    record.IsNew = true;
    world.failingStatement = 1;
    EXPECT_EQ(FailureOf([&] { record.InitEdit(StoredEntry()); }), "statement refused");
    EXPECT_EQ(Barred(record.Id, record.CreateFiles, record.IsNew), "42|C|1|");
    EXPECT_EQ(world.TakeTrace(), "SELECT * FROM NOL_Override WHERE NOL_OverrideId = 42; ");
    record.InitEdit(StoredEntry());
    EXPECT_EQ(Columns(record),
              "Nightly|42|2026-03-02T06:00:00|50040|11|2|3|A|4|on|m|t|w|h|f|s|u|o|a|901|902|S|M|P|33|Sub|C"
              "|Y,,,Y|0|");
    EXPECT_EQ(OverridesOf(record),
              "VCSA Study=42 VCSA Study 0 30 0 5 log; Other=42 Other 3 0 0 5 log; HOM Study=42 HOM Study 12 "
              "0 0 5 log; ");
    EXPECT_THROW(record.InitEdit(StoredEntry()), DuplicateKeyError);
}

// Each statement with its first values alone: "DELETE 7; INSERT 7, 'HOM Study'; report; ".
std::string Shortened(const std::string& trace) {
    const auto deletes = std::regex_replace(trace, std::regex("FROM .*? = "), "");
    return std::regex_replace(deletes, std::regex("INTO .*?VALUES \\((.*?), 12, .*?\\)"), "$1");
}

TEST(OverrideSet, SavesTheObjectsWhoseTypeIsOn) {
    const std::vector<std::string> two = {"HOM Study", "PLM Study"};
    // New or not, the objects by key and, where it differs, type; HOM, PLM, RFC, VCSA flags; the failing
    // statement.
    const std::tuple<bool, std::vector<std::string>, std::string, int, std::string> cases[] = {
        {true, {}, "YYYY", 0, ""},
        {false, {}, "YYYY", 0, "DELETE 7; "},
        {false, two, "NyNN", 0, "DELETE 7; "},
        {false, two, " Y Y", 0, "DELETE 7; INSERT 7, 'PLM Study'; "},
        {true, {"VCSA Study", "HOM Study"}, "YNNY", 0, "INSERT 7, 'VCSA Study'; INSERT 7, 'HOM Study'; "},
        {true, {"PLM Study=HOM Study", "HOM Study=VCSA Study"}, "YNNN", 0, "INSERT 7, 'HOM Study'; "},
        {true, {"Other=hom study"}, "YYYY", 0, ""},
        {false, two, "YYYY", 2, "DELETE 7; INSERT 7, 'HOM Study'; report; INSERT 7, 'PLM Study'; "},
        {false, two, "YYYY", 1, "DELETE 7; statement refused"}};
    for (const auto& [isNew, objects, flags, failingStatement, trace] : cases) {
        InstalledWorld world;
        world.failingStatement = failingStatement;
        CNolSchedData record;
        record.Id = 7;
        record.IsNew = isNew;
        for (const auto& object : objects)
            record.AddNolOverride(MakeOverride(object.substr(object.find('=') + 1)),
                                  object.substr(0, object.find('=')));
        for (std::size_t i = 0; i < 4; ++i) record.*studyKinds.at(i).pFlag = flags[i];
        const auto failure = FailureOf([&] { record.SaveNolOverrides(); });
        EXPECT_EQ(Shortened(world.trace) + (failure == "no failure" ? "" : failure), trace) << flags;
        EXPECT_EQ(record.IsNew, isNew);
    }
}

TEST(OverrideSet, FlagsFollowExactKeysAlone) {
    CNolSchedData record;
    record.AddNolOverride(MakeOverride("HOM Study"), "hom study");
    EXPECT_THROW(record.AddNolOverride(MakeOverride("HOM Study"), "HOM Study"), DuplicateKeyError);
    EXPECT_THROW(record.AddNolOverride(nullptr, "PLM Study"), NolSchedError);
    std::string trace;
    for (const char* key : {"HOM Study", "PLM Study", "RF Call Trace Study", "VCSA Study"}) {
        trace += FlagsOf(record) + "; ";
        record.RemoveNolOverride(key);
        record.RemoveNolOverride(key);
        record.AddNolOverride(MakeOverride("any"), key);
    }
    record.RemoveNolOverride("VCSA Study");
    EXPECT_EQ(trace + FlagsOf(record), ",,,; Y,,,; Y,Y,,; Y,Y,Y,; Y,Y,Y,Y");
    EXPECT_EQ(record.Overrides().Count(), 3);
}

}  // namespace
}  // namespace NolSchedCtls::Testing
