// The library as another language reaches it: by the table of functions alone.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "NolSchedCtls/library/c_interface.h"
#include "NolSchedCtls/library/component.h"

extern "C" {
NolSchedCtls::DllGetClassObjectFunction DllGetClassObject;
NolSchedCtls::DllCanUnloadNowFunction DllCanUnloadNow;
}

namespace NolSchedCtls::Testing {
namespace {

using Rows = std::vector<std::vector<std::pair<const char*, const char*>>>;
using Handle = NolSchedHandle;

constexpr std::array services = {"Execute",  "Query", "Literal",   "Documents",
                                 "Settings", "Now",   "DateOrder", "Report"};

// What an entry's row holds beside "Y".
const std::map<std::string, const char*> storedColumns = {{"Id", "42"},
                                                          {"EditorName", "Nightly"},
                                                          {"FirstDateTime", "2026-03-02T09:05:00"},
                                                          {"FinalDateTime", "2036-12-31T00:00:00"},
                                                          {"WhichMonthDate", "0"},
                                                          {"WhichWeek", "1"},
                                                          {"WhichWeekday", "1"},
                                                          {"Periodicity", "D"},
                                                          {"Frequency", "1"},
                                                          {"ClientMachineId", "0"},
                                                          {"RptGrpId", "5"},
                                                          {"RunMode", "S"},
                                                          {"RetrieveMode", "A"},
                                                          {"PurgeInterval", "30"},
                                                          {"SubFolderName", nullptr}};

const Rows storedOverride = {{{"nol_overrideid", "42"},
                              {"Type", "PLM Study"},
                              {"ScenarioId", nullptr},
                              {"Duration", nullptr},
                              {"Polling_Interval", "30"},
                              {"Retrieve_Delay", nullptr},
                              {"ClearLog", "ä"}}};

// A host in C. What its call-backs answer and what results they give is set by the tests; what it hears and
// is asked to do stands in the trace.
struct CHost {
    CHost() {
        installed.size = sizeof(installed);
        installed.host = this;
        const auto asked = AskedAll(std::make_index_sequence<services.size()>());
        NolSchedAsked* const places[] = {&installed.Execute,   &installed.Query,    &installed.Literal,
                                         &installed.Documents, &installed.Settings, &installed.Now,
                                         &installed.DateOrder, &installed.Report};
        for (std::size_t i = 0; i < services.size(); ++i) *places[i] = asked[i];
        installed.Message = [](void* host, const char* text, std::int32_t flags, const char* title) {
            auto& self = *static_cast<CHost*>(host);
            self.trace += std::string(title) + "[" + std::to_string(flags) + "]: " + text + "; ";
            return self.results["Message"];
        };
        EXPECT_EQ(c.InstallServices(&installed), NOLSCHED_OK);
    }
    CHost(const CHost&) = delete;
    CHost& operator=(const CHost&) = delete;
    ~CHost() {
        for (const Handle handle : made) c.Release(handle);
        EXPECT_EQ(c.InstallServices(nullptr), NOLSCHED_OK);
        EXPECT_EQ(DllCanUnloadNow(), componentOk);
    }

    static const NolSchedC1& Table() {
        void* found = nullptr;
        EXPECT_EQ(DllGetClassObject(NOLSCHED_C_CLASS, NOLSCHED_C1_INTERFACE, &found), componentOk);
        return *static_cast<const NolSchedC1*>(found);
    }

    template <std::size_t... index>
    static std::array<NolSchedAsked, services.size()> AskedAll(std::index_sequence<index...> /*all*/) {
        return {[](void* host, const char* text, Handle answer) {
            return static_cast<CHost*>(host)->Answer(services[index], text, answer);
        }...};
    }

    std::int32_t Answer(const std::string& service, const std::string& text, Handle answer) {
        if (service == "Execute" || service == "Query" || service == "Report")
            trace += service + " " + text + "; ";
        lastAnswer = answer;
        if (isReinstalling) c.InstallServices(&installed);
        for (const auto& row : answers[service + (service == "Documents" ? " " + text : "")]) {
            c.NewRow(answer);
            for (const auto& [column, value] : row) c.Give(answer, column, value);
        }
        return results[service];
    }

    // "ok", or the result and why, without the number of a handle.
    std::string Told(std::int32_t result) const {
        if (result == NOLSCHED_OK) return "ok";
        return std::to_string(result) + " " +
               std::regex_replace(c.LastFailure(), std::regex("^The handle \\d+"), "The handle");
    }
    std::string Read(auto call, auto... given) const {
        const char* text = nullptr;
        const std::int32_t result = call(given..., &text);
        return result == NOLSCHED_OK ? text : Told(result);
    }
    std::string Field(Handle tab, const char* field, const char* property) const {
        return Read(c.GetField, tab, field, property);
    }
    std::string TakeTrace() { return std::exchange(trace, {}); }

    Handle MakeTab(const char* name) {
        Handle tab = 0;
        EXPECT_EQ(Told(c.CreateTab(name, &tab)), "ok");
        made.push_back(tab);
        return tab;
    }
    void MakeRecord() {
        c.CreateRecord(&record);
        made.push_back(record);
        const char* name = nullptr;
        for (std::int32_t i = 0; c.ColumnName(i, &name) == NOLSCHED_OK; ++i) {
            const std::string column = name;
            const auto stored = storedColumns.find(column);
            if (column.ends_with("Ovr") || column == "IsNew" || column.ends_with("RunDate")) continue;
            EXPECT_EQ(
                c.SetColumn(record, column.c_str(), stored == storedColumns.end() ? "Y" : stored->second),
                NOLSCHED_OK)
                << column;
        }
    }
    void MakeNotifier() {
        const auto hear = [](void* host, std::int32_t event, Handle tab, const char* name) {
            auto& self = *static_cast<CHost*>(host);
            constexpr std::array events = {"", "changed", "show", "field", "focus", "beep"};
            self.trace += std::string(events.at(static_cast<std::size_t>(event))) + (*name != 0 ? " " : "") +
                          name + "; ";
            EXPECT_EQ(tab != 0, event >= NOLSCHED_FIELD_CHANGED);
            if (self.onHeard) self.onHeard();
        };
        c.CreateNotifier(hear, this, &notifier);
        made.push_back(notifier);
    }
    // The stored entry in a tab.
    Handle Open(const char* name) {
        MakeRecord();
        MakeNotifier();
        const Handle tab = MakeTab(name);
        EXPECT_EQ(Told(c.InitEdit(record)), "ok");
        EXPECT_EQ(Told(c.LoadData(tab, record, notifier)), "ok");
        TakeTrace();
        return tab;
    }

    // A stored entry is opened, switched to the HOM Study with a text to quote, and saved; what fails ends
    // it.
    std::string Job() {
        MakeRecord();
        MakeNotifier();
        Handle general = 0;
        Handle schedule = 0;
        Handle hom = 0;
        const std::pair<const char*, std::function<std::int32_t()>> steps[] = {
            {"InitEdit", [&] { return c.InitEdit(record); }},
            {"general", [&] { return c.CreateTab("XNolSchedGenTab", &general); }},
            {"schedule", [&] { return c.CreateTab("NolSchedCtls.XNolScheduleTab", &schedule); }},
            {"HOM", [&] { return c.CreateTab("XNolSchedHomOvr", &hom); }},
            {"load general", [&] { return c.LoadData(general, record, notifier); }},
            {"load schedule", [&] { return c.LoadData(schedule, record, notifier); }},
            {"day", [&] { return c.Act(schedule, "SSDStartDate", "date", "2/3/2026"); }},
            {"load HOM", [&] { return c.LoadData(hom, record, notifier); }},
            {"click", [&] { return trace += "| ", c.Act(hom, "chkOverride", "click", nullptr); }},
            {"pick", [&] { return c.Act(hom, "fdocCBScenario", "pick", "Baseline"); }},
            {"valid", [&] { return trace += "| ", c.IsTabValid(general, "T"); }},
            {"save", [&] { return c.SaveData(hom); }},
            {"save overrides", [&] { return c.SaveNolOverrides(record); }}};
        std::string failed;
        for (const auto& [name, step] : steps)
            if (const auto result = step(); result != NOLSCHED_OK && failed.empty())
                failed = std::string(name) + ": " + Told(result);
        for (const Handle tab : {general, schedule, hom}) c.Release(tab);
        return failed.empty() ? "done" : failed;
    }

    const NolSchedC1& c = Table();
    std::map<std::string, Rows> answers = {{"Documents NOL Group", {{{"Id", "5"}, {"Name", "North"}}}},
                                           {"Documents Scenario", {{{"Name", "Baseline"}, {"Id", "12"}}}},
                                           {"Literal", {{{"Literal", "'~'"}}}},
                                           {"Now", {{{"Now", "2026-03-02T09:05:00"}}}},
                                           {"DateOrder", {{{"Order", "DMY"}}}}};
    std::map<std::string, std::int32_t> results;
    bool isReinstalling = false;  // each call-back replaces the services by the same
    NolSchedServices installed{};
    std::function<void()> onHeard;
    std::string trace;
    std::vector<Handle> made;
    Handle record = 0;
    Handle notifier = 0;
    Handle lastAnswer = 0;
};

TEST(CInterface, DoesTheWholeJob) {
    CHost host;
    host.answers["Query"] = storedOverride;
    EXPECT_EQ(host.Job(), "done");
    EXPECT_EQ(
        host.TakeTrace(),
        "Query SELECT * FROM NOL_Override WHERE NOL_OverrideId = 42; changed; changed; changed; changed; "
        "changed; changed; changed; changed; focus SSDStartDate; | focus chkOverride; field chkOverride; "
        "field fraScenario; field lblScenario; field fdocCBScenario; field fraDuration; field txtDuration; "
        "field Label1; field chkHom; changed; changed; focus fdocCBScenario; field fdocCBScenario; "
        "changed; | Execute DELETE FROM NOL_Override WHERE NOL_OverrideId = 42; "
        "Execute INSERT INTO NOL_Override (NOL_OverrideId, Type, ScenarioId, Duration, Polling_Interval, "
        "Retrieve_Delay, ClearLog) VALUES (42, '~', 0, 0, 30, 0, '~'); "
        "Execute INSERT INTO NOL_Override (NOL_OverrideId, Type, ScenarioId, Duration, Polling_Interval, "
        "Retrieve_Delay, ClearLog) VALUES (42, '~', 12, NULL, NULL, NULL, '~'); ");
    const auto& c = host.c;
    for (const char* column : {"Type", "polling_interval", "ClearLog", "ScenarioId"})
        host.trace += host.Read(c.GetOverride, host.record, 0, column) + "; ";
    host.trace += host.Read(c.GetOverride, host.record, 1, "Type") + "; ";
    c.SetColumn(host.record, "RunMode", "I");
    host.answers["Now"] = {{{"Now", "2026-03-03T10:00:00"}}};
    for (const char* column : {"Id", "editorname", "FirstDateTime", "HomOvr", "IsNew", "SubFolderName",
                               "DBFirstDateTime", "dbfinaldatetime"})
        host.trace += host.Read(c.GetColumn, host.record, column) + "; ";
    EXPECT_EQ(host.TakeTrace(),
              "PLM Study; 30; ä; 0; HOM Study; 42; Nightly; 2026-03-02T09:05:00; Y; N; ; "
              "2026-03-03T10:00:00; 2036-12-31T00:00:00; ");
}

TEST(CInterface, OpensAgainWhatHasFailed) {
    CHost host;
    host.MakeRecord();
    auto& rows = host.answers["Query"] = {storedOverride[0], {{"NOL_OverrideId", "many"}}};
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(host.Told(host.c.InitEdit(host.record)),
                  "-8 The call-back Query answered what makes no sense: The column NOL_OverrideId holds "
                  "\"many\", which is no 32-bit number.");
    rows.clear();
    EXPECT_EQ(host.Told(host.c.InitEdit(host.record)), "ok");
    EXPECT_EQ(host.Read(host.c.GetColumn, host.record, "PlmOvr"), "");
}

TEST(CInterface, TellsWhatFieldsHold) {
    CHost host;
    std::string told;
    for (const auto& [name, fields] :
         {std::pair("XNolSchedGenTab", std::vector{"fdocRptGroup", "ctlPurgeOptions", "ctlDownloadOptions"}),
          std::pair("XNolScheduleTab", std::vector{"cboPeriod", "cboDayNum", "SSDStartDate", "dtpStartTime"}),
          std::pair("XNolSchedPlmOvr", std::vector{"chkOverride", "fraRetrieveDelay", "txtRetrieveDelay"})}) {
        const Handle tab = host.Open(name);
        for (const char* field : fields) {
            for (const char* property :
                 {"kind", "frame", "caption", "text", "value", "visible", "enabled", "focused", "left"})
                told += host.Field(tab, field, property) + "|";
            for (std::int32_t i = 0; i < 2; ++i) told += host.Read(host.c.GetEntry, tab, field, i) + "|";
            told += "\n";
        }
    }
    EXPECT_EQ(told,
              "picker|Frame2||North|5|Y|Y|N|0|North|1 There is no entry 1.|\n"
              "purge|Frame5||30|1|Y|Y|N|0|1 There is no entry 0.|1 There is no entry 1.|\n"
              "download|Frame4||Automatic|A|Y|Y|N|0|Automatic|Manual|\n"
              "list|Frame2||Daily|2|Y|Y|N|240|Once|Hourly|\n"
              "list|Frame2||1st|0|N|Y|N|0|1st|2nd|\n"
              "date|Frame1||Monday, March 02, 2026|2026-03-02|Y|Y|N|0|1990-01-01 to 2035-12-31|1 There is no "
              "entry 1.|\n"
              "time|Frame2||9:05 AM|09:05|Y|Y|N|0|00:00 to 23:59|1 There is no entry 1.|\n"
              "check box||&Override PLM Study||0|Y|Y|N|0|1 There is no entry 0.|1 There is no entry 1.|\n"
              "frame||Retrieve Delay  |||N|Y|N|0|1 There is no entry 0.|1 There is no entry 1.|\n"
              "text box|fraRetrieveDelay||||N|Y|N|0|1 There is no entry 0.|1 There is no entry 1.|\n");
}

TEST(CInterface, SaysWhatIsWrongWithACall) {
    CHost host;
    const auto& c = host.c;
    const Handle hom = host.Open("XNolSchedHomOvr");
    const Handle schedule = host.MakeTab("XNolScheduleTab");
    const Handle record = host.record;
    EXPECT_EQ(host.Told(c.LoadData(schedule, record, 0)), "ok");
    const Handle empty = host.MakeTab("XNolSchedHomOvr");
    Handle fresh = 0;
    c.CreateRecord(&fresh);
    host.made.push_back(fresh);
    const char* text = "untouched";
    Handle made = 0;
    const auto install = [&](std::size_t size) {
        return [=, &c] {
            NolSchedServices given{};
            given.size = size;
            return c.InstallServices(&given);
        };
    };
    const auto act = [&](const char* field, const char* verb, const char* with) {
        return [=, &c] { return c.Act(hom, field, verb, with); };
    };
    const std::pair<std::function<std::int32_t()>, const char*> cases[] = {
        {[&] { return c.LoadData(0, record, 0); }, "-4 The handle was never handed out."},
        {[&] { return c.Release(99999); }, "-4 The handle was never handed out."},
        {[&] { return c.SaveData(record); }, "-4 The handle is no tab."},
        {[&] { return c.LoadData(empty, record, hom); }, "-4 The handle is no notifier."},
        {[&] { return c.Release(host.lastAnswer); }, "-4 The handle has been released."},
        {[&] { return c.Give(host.lastAnswer, "Now", "late"); }, "-4 The handle has been released."},
        {install(0), "-6 The size 0 of NolSchedServices is not the end of a call-back."},
        {install(17), "-6 The size 17 of NolSchedServices is not the end of a call-back."},
        {[&] { return c.CreateTab("CNolOverride", &made); }, "-5 There is no tab \"CNolOverride\"."},
        {[&] { return c.CreateTab(nullptr, &made); }, "-3 A null pointer stands for a tab's name."},
        {[&] { return c.CreateTab("XNolSchedHomOvr", nullptr); },
         "-3 A null pointer stands for the place for a tab."},
        {[&] { return c.CreateRecord(nullptr); }, "-3 A null pointer stands for the place for a record."},
        {[&] { return c.CreateNotifier(nullptr, nullptr, &made); },
         "-3 A null pointer stands for the call-back of a notifier."},
        {[&] { return c.GetField(hom, "chkOverride", "kind", nullptr); },
         "-3 A null pointer stands for the place for a text."},
        {[&] { return c.GetField(hom, "chkoverride", "kind", &text); },
         "-5 The tab has no field \"chkoverride\"."},
        {[&] { return c.GetField(hom, "chkOverride", "colour", &text); },
         "-5 Fields have no property \"colour\"."},
        {[&] { return c.GetEntry(hom, "chkOverride", 0, &text); }, "1 There is no entry 0."},
        {[&] { return c.FieldName(hom, -1, &text); }, "1 There is no field -1."},
        {[&] { return c.ColumnName(34, &text); }, "1 There is no column 34."},
        {[&] { return c.GetOverride(record, 0, "Type", &text); }, "1 There is no override 0."},
        {[&] { return c.GetOverride(record, 0, "Colour", &text); }, "-5 There is no column \"Colour\"."},
        {[&] { return c.SetColumn(record, "Colour", "red"); }, "-5 There is no column \"Colour\"."},
        {[&] { return c.SetColumn(record, "DBFirstDateTime", "2026-03-02"); },
         "-5 There is no column \"DBFirstDateTime\"."},
        {[&] { return c.SetColumn(record, nullptr, "red"); },
         "-3 A null pointer stands for a column's name."},
        {[&] { return c.SetColumn(record, "Id", "4294967296"); },
         "-6 Id: The text \"4294967296\" is no 32-bit number."},
        {[&] { return c.SetColumn(record, "FirstDateTime", "2026-02-30"); },
         "-6 FirstDateTime: There is no day 2026-2-30."},
        {[&] { return c.SetColumn(record, "FirstDateTime", "0099-01-01"); },
         "-6 FirstDateTime: There is no day 99-1-1."},
        {[&] { return c.SetColumn(record, "IsNew", "y"); }, "-6 IsNew: The text \"y\" is neither Y nor N."},
        {[&] { return c.InitEdit(fresh); }, "-7 InitEdit lacks the column Id."},
        {[&] { return c.SetColumn(fresh, "Id", "1"), c.InitEdit(fresh); },
         "-7 InitEdit lacks the column EditorName."},
        {[&] { return c.InitNew(record, 0, 5, "again"); }, "-7 The record has been filled before."},
        {[&] { return c.LoadData(empty, fresh, 0); },
         "-7 The record is empty; InitNew or InitEdit comes first."},
        {[&] { return c.SaveNolOverrides(fresh); },
         "-7 The record is empty; InitNew or InitEdit comes first."},
        {[&] { return c.IsTabValid(empty, "T"); }, "-7 The tab is empty; LoadData comes first."},
        {[&] { return c.SaveData(empty); }, "-7 The tab is empty; LoadData comes first."},
        {[&] { return c.Act(empty, "chkOverride", "click", ""); },
         "-7 The tab is empty; LoadData comes first."},
        {[&] { return c.IsTabValid(hom, nullptr); }, "-3 A null pointer stands for the title of a message."},
        {act("txtDuration", "type", "5"), "1 txtDuration is hidden."},
        {act("chkOverride", "press", nullptr), "-5 There is no act \"press\"."},
        {act("chkOverride", "pick", "on"), "1 chkOverride is a check box, which one cannot pick."},
        {act("chkOverride", "click", nullptr), "ok"},
        {act("txtDuration", "type", nullptr), "-3 A null pointer stands for the text of an act."},
        {act("txtDuration", "type", "5x"), "1 txtDuration: the key \"x\" of \"5x\" is refused."},
        {act("txtDuration", "paste", "123456"), "1 txtDuration: \"123456\" is too long."},
        {act("txtDuration", "paste", "\xFF"), "-6 What stands for the text of an act is no UTF-8."},
        {act("fdocCBScenario", "pick", "Nowhere"), "1 fdocCBScenario does not offer \"Nowhere\"."},
        {act("fdocCBScenario", "paste", "Nowhere"), "ok"},
        {[&] { return c.IsTabValid(hom, "T"); }, "1 The tab is not valid, which a message has told."},
        {[&] { return c.Act(schedule, "SSDStartDate", "date", "31/12/1989"); },
         "1 SSDStartDate: \"31/12/1989\" cannot be chosen; a date is from 1/1/1990 to 31/12/2035."},
        {[&] { return c.Act(schedule, "SSDStartDate", "date", "31/12/2026"); }, "ok"},
        {[&] { return c.Act(schedule, "cbExcludeDay(9)", "click", ""); },
         "-5 The tab has no field \"cbExcludeDay(9)\"."},
    };
    std::string told, expected;
    for (const auto& [call, answer] : cases)
        told += host.Told(call()) + "\n", expected += std::string(answer) + "\n";
    EXPECT_EQ(told, expected);
    EXPECT_STREQ(text, "untouched");
    EXPECT_EQ(made, 0U);
    EXPECT_EQ(
        host.TakeTrace(),
        "focus chkOverride; field chkOverride; field fraScenario; field lblScenario; field fdocCBScenario; "
        "field fraDuration; field txtDuration; field Label1; changed; beep txtDuration; "
        "focus fdocCBScenario; field fdocCBScenario; changed; T[16]: HOM Override.\r\nThere is no Scenario "
        "named \"Nowhere\".; show HOM Study; focus "
        "fdocCBScenario; ");
    void* found = &found;
    EXPECT_EQ(DllGetClassObject(NOLSCHED_C_CLASS, "NolSchedC2", &found), componentNoInterface);
    EXPECT_EQ(found, nullptr);
}

TEST(CInterface, TakesUtf8Alone) {
    CHost host;
    host.MakeRecord();
    for (const char* text : {"", "a", "\u00E4", "\u20AC", "\uFFFD", "\U0001F600", "\U0010FFFF"}) {
        EXPECT_EQ(host.Told(host.c.SetColumn(host.record, "EditorName", text)), "ok");
        EXPECT_EQ(host.Read(host.c.GetColumn, host.record, "EditorName"), text);
    }
    for (const char* text : {"\x80", "\xC0\xAF", "\xC3", "a\xE2\x82", "\xE0\x9F\xBF", "\xED\xA0\x80",
                             "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xC3(", "\xFF"})
        EXPECT_EQ(host.Told(host.c.SetColumn(host.record, "EditorName", text)),
                  "-6 EditorName: What stands for a column's text is no UTF-8.");
}

// What the call-back answers, the result that it gives, and how the job ends.
TEST(CInterface, NamesACallBackThatFails) {
    struct {
        const char* service;
        Rows answer;
        std::int32_t result;
        const char* end;
    } cases[] = {
        {"Query",
         {{{"Failure", "no such table"}}},
         1,
         "InitEdit: -8 The call-back Query failed: no such table"},
        {"Query", {}, 17, "InitEdit: -8 The call-back Query failed (17)."},
        {"Query",
         {{{"Type", "HOM Study"}}},
         0,
         "InitEdit: -8 The call-back Query answered what makes no sense: The rows have no column "
         "NOL_OverrideId."},
        {"Query",
         {{{"NOL_OverrideId", "many"}}},
         0,
         "InitEdit: -8 The call-back Query answered what makes no sense: The column NOL_OverrideId holds "
         "\"many\", which is no 32-bit number."},
        {"Query",
         {{{nullptr, "1"}}},
         0,
         "InitEdit: -8 The call-back Query answered what cannot be taken: A null pointer stands for a "
         "column's name."},
        {"Query",
         {{{"Type", "\xFF"}}},
         0,
         "InitEdit: -8 The call-back Query answered what cannot be taken: What stands for a column's text is "
         "no UTF-8."},
        {"Documents NOL Group",
         {{{"Id", "5"}}},
         0,
         "load general: -8 The call-back Documents answered without the column Name."},
        {"Documents NOL Group",
         {{{"Id", nullptr}, {"Name", "North"}}},
         0,
         "load general: -8 The call-back Documents answered without the column Id."},
        {"Documents NOL Group",
         {{{"Id", "five"}, {"Name", "North"}}},
         0,
         "load general: -8 The call-back Documents answered the Id \"five\"."},
        {"Documents NOL Group", {}, 0, "valid: 1 The tab is not valid, which a message has told."},
        {"Documents Scenario", {}, 0, "pick: 1 fdocCBScenario does not offer \"Baseline\"."},
        {"Settings",
         {{{"Max Purge Interval", "0"}}},
         0,
         "load general: -9 The setting \"Max Purge Interval\" is \"0\", which is no number of days."},
        {"Settings", {}, -1, "load general: -8 The call-back Settings failed (-1)."},
        {"Now",
         {{{"Now", "yesterday"}}},
         0,
         "load schedule: -8 The call-back Now answered the Now \"yesterday\"."},
        {"Now", {}, 0, "load schedule: -8 The call-back Now answered without the column Now."},
        {"DateOrder", {{{"Order", "dmy"}}}, 0, "day: -8 The call-back DateOrder answered the Order \"dmy\"."},
        {"Literal",
         {{{"Literal", nullptr}}},
         0,
         "save overrides: -8 The call-back Literal answered without the column Literal."},
        {"Execute",
         {{{"Failure", "disk full"}}},
         5,
         "save overrides: -8 The call-back Execute failed: disk full"},
        {"Report",
         {},
         5,
         "save overrides: -8 The call-back Literal answered without the column Literal.\nThe call-back "
         "Report "
         "failed (5).\nThe call-back Literal answered without the column Literal.\nThe call-back Report "
         "failed "
         "(5)."},
    };
    std::string told, expected;
    const std::size_t count = std::size(cases);
    for (std::size_t i = 0; i < 2 * count; ++i) {
        const auto& [service, answer, result, end] = cases[i % count];
        CHost host;
        host.isReinstalling = i >= count;
        host.answers[service] = answer;
        if (std::string(service) == "Report")
            host.answers["Literal"].clear(), host.answers["Query"] = storedOverride;
        host.results[std::string(service).substr(0, std::string(service).find(' '))] = result;
        told += host.Job() + "\n";
        expected += std::string(end) + "\n";
    }
    EXPECT_EQ(told, expected);
}

TEST(CInterface, KeepsWhatIsReleasedAsLongAsItIsUsed) {
    CHost host;
    const Handle tab = host.Open("XNolSchedHomOvr");
    const auto& c = host.c;
    EXPECT_EQ(host.Told(c.Release(host.record)), "ok");
    EXPECT_EQ(host.Told(c.Act(tab, "chkOverride", "click", nullptr)), "ok");
    EXPECT_EQ(host.Told(c.SaveData(tab)), "ok");
    // The first thing that is heard ends the tab and its notifier in the middle of the act.
    host.TakeTrace();
    host.onHeard = [&] {
        host.trace += host.Told(c.Release(host.notifier)) + ", " + host.Told(c.Release(tab));
    };
    EXPECT_EQ(host.Told(c.Act(tab, "chkOverride", "click", nullptr)), "ok");
    EXPECT_EQ(host.Told(c.SaveData(tab)), "-4 The handle has been released.");
    EXPECT_EQ(host.TakeTrace(), "field chkOverride; ok, ok");
}

TEST(CInterface, ALoadIsHeardByNobody) {
    CHost host;
    const Handle tab = host.Open("XNolScheduleTab");
    EXPECT_EQ(host.Told(host.c.SetColumn(host.record, "Periodicity", "W")), "ok");
    EXPECT_EQ(host.Told(host.c.LoadData(tab, host.record, host.notifier)), "ok");
    EXPECT_EQ(host.TakeTrace().find("field"), std::string::npos) << "nor a second one";
}

// The released ones are kept for a while, and are released all the same.
TEST(CInterface, ReleasesManyHandlesInAnyOrder) {
    CHost host;
    std::vector<Handle> many(20000);
    for (Handle& handle : many) EXPECT_EQ(host.c.CreateRecord(&handle), NOLSCHED_OK);
    for (const Handle handle : many) {
        EXPECT_EQ(host.c.Release(handle), NOLSCHED_OK);
        EXPECT_EQ(host.c.Release(handle), NOLSCHED_BAD_HANDLE);
    }
}

// A host that was made for an earlier library gives fewer services, and those left out are in memory.
TEST(CInterface, ServesInMemoryWhatAHostLeavesOut) {
    CHost host;
    NolSchedServices none{};
    none.size = offsetof(NolSchedServices, Documents);
    none.Documents = [](void*, const char*, Handle) { return 5; };
    EXPECT_EQ(host.Told(host.c.InstallServices(&none)), "ok");
    EXPECT_EQ(host.Job(), "pick: 1 fdocCBScenario does not offer \"Baseline\".");
    EXPECT_EQ(host.TakeTrace().find("Execute"), std::string::npos);
    EXPECT_EQ(host.Told(host.c.InstallServices(nullptr)), "ok");
    EXPECT_EQ(host.Job(),
              "InitEdit: -7 The service LintelDb is not there: no services are installed (InstallServices).");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
