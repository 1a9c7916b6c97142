#include <gtest/gtest.h>

#include "tabs/override/nol_sched_override_tab.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {

namespace {

constexpr const char* notNumeric = "T[16]: Study Duration must be numeric.; focus txtDuration; refused";
constexpr const char* outOfRange =
    "T[16]: Study Duration must be between 10 and 1439 minutes inclusive.; focus txtDuration; refused";

std::shared_ptr<CNolOverride> Stored(const std::string& type, std::int32_t scenario, std::int32_t duration) {
    auto item = std::make_shared<CNolOverride>();
    item->Initialize(42, type, scenario, duration, 30, 5, "log");
    return item;
}

// A stored entry's page of one study kind.
struct OverridePage {
    InstalledWorld world;
    std::shared_ptr<CNolSchedData> record = std::make_shared<CNolSchedData>();
    std::shared_ptr<CPaviseNotify> notify = TracedNotify(world);
    const std::string key;
    NolSchedOverrideTab tab;
    CheckBox& chkOverride = tab.Field<CheckBox>("chkOverride");

    explicit OverridePage(const OverrideKind& kind = homOverride) : key(kind.study.sKey), tab(kind) {
        TraceControl(world, tab);
        world.documents = {{12, "Baseline", {"Scenario"}}, {13, "Busy", {"Scenario"}}, {5, "North", {"NOL Group"}}};
        record->Id = 77;
    }
    OverridePage& Load() {
        tab.LoadData(record, "", notify);
        world.TakeTrace();
        return *this;
    }
    OverridePage& SwitchOn() {
        if (chkOverride.Value() == 0) chkOverride.Click();
        chkOverride.SetFocus();
        world.TakeTrace();
        return *this;
    }
    TextBox& Text(const char* name) { return tab.Field<TextBox>(name); }
    XMarlet& Picker() { return tab.Field<XMarlet>("fdocCBScenario"); }
    std::string Valid() {
        const bool valid = tab.IsTabValid("T");
        return world.TakeTrace() + (valid ? "valid" : "refused");
    }
    std::string Saved() {
        tab.SaveData();
        std::string saved = record->HomOvr + " ";
        for (const auto& [itemKey, item] : record->Overrides())
            saved += itemKey + "=" + std::to_string(item->NOL_OverrideId) + " " + item->OverrideType + " " +
                     std::to_string(item->ScenarioId) + " " + std::to_string(item->Duration) + " " +
                     std::to_string(item->Polling_Interval) + " " + std::to_string(item->Retrieve_Delay) + " " +
                     item->ClearLog + "; ";
        return saved;
    }
};

TEST(OverrideTab, ReadsWhatAUserPastes) {
    const struct {
        std::string text;
        std::string outcome;  // the message, or the number that is saved
    } cases[] = {
        {"10", "10"},         {"1439", "1439"},     {"0015", "15"},       {"", "-1"},          {"10.5", "10"},
        {"11.5", "12"},       {"9.5", "10"},        {"1e2", "100"},       {"15 ", "15"},       {"9", outOfRange},
        {"1440", outOfRange}, {"0", outOfRange},    {"1.5", outOfRange},  {"-5", outOfRange},  {"+15", outOfRange},
        {" 15", outOfRange},  {"1e9", outOfRange},  {".5", outOfRange},   {"abc", notNumeric}, {"  ", notNumeric},
        {".", notNumeric},    {"-", notNumeric},    {"1e", notNumeric},   {"0x1F", notNumeric}, {"nan", notNumeric},
        {"inf", notNumeric},  {"1,0", notNumeric},  {"\xFF\xFE", notNumeric}, {std::string("1\0", 2), notNumeric},
        {std::string(1 << 20, '1'), "1111"}, {std::string(1 << 20, 'x'), notNumeric},
    };
    for (const auto& c : cases) {
        OverridePage page;
        page.Load().SwitchOn();
        page.Text("txtDuration").Paste(c.text);
        page.SwitchOn();
        const std::string answer = page.Valid();
        if (answer == "valid") page.tab.SaveData();
        EXPECT_EQ(answer == "valid" ? std::to_string(page.record->GetOverride(page.key)->Duration) : answer, c.outcome)
            << c.text.substr(0, 9);
    }
}

TEST(OverrideTab, SurvivesTextsThatOnlyCodeCanShow) {
    const std::pair<std::string, const char*> cases[] = {
        {"1439.5", outOfRange}, {"1e99999", outOfRange}, {"32768", outOfRange},
        {std::string(1 << 20, '9'), outOfRange}, {std::string(1 << 20, ' ') + "x", notNumeric}};
    for (const auto& [text, outcome] : cases) {
        OverridePage page;
        page.Load().SwitchOn().Text("txtDuration").SetText(text);
        page.world.TakeTrace();
        EXPECT_EQ(page.Valid(), outcome) << text.substr(0, 9);
    }
}

TEST(OverrideTab, LetsDigitsAndBackspaceThrough) {
    OverridePage page;
    page.Load().SwitchOn().Text("txtDuration").SetFocus();
    page.world.TakeTrace();
    for (const char32_t key : {U'1', U'a', U'2', U'-', U'.', U'3', U'4', U'5', keyBackspace, U'\u0663'})
        page.Text("txtDuration").Key(key);
    EXPECT_EQ(page.Text("txtDuration").Text(), "123");
    EXPECT_EQ(page.world.trace,
              "MarkChanged; beep txtDuration; MarkChanged; beep txtDuration; beep txtDuration; MarkChanged; "
              "MarkChanged; MarkChanged; beep txtDuration; ");
}

TEST(OverrideTab, ChecksTheScenarioBeforeTheDuration) {
    const char* const deleted =
        "T[16]: HOM Override.\r\nThe Scenario \"Busy\" has been deleted.; ShowTab HOM Study; ";
    OverridePage page;
    page.record->AddNolOverride(Stored("HOM Study", 13, 9), "HOM Study");
    page.Load().SwitchOn();
    EXPECT_EQ(page.Valid(), outOfRange);
    page.world.documents.pop_back();
    page.world.documents.pop_back();
    EXPECT_EQ(page.Valid(), deleted + std::string("focus fdocCBScenario; refused"));
    page.chkOverride.SetFocus();
    page.tab.SetVisible(false);
    page.world.TakeTrace();
    EXPECT_EQ(page.Valid(), deleted + std::string("refused"));
    page.Picker().Paste("Nowhere");
    page.world.TakeTrace();
    EXPECT_EQ(page.Valid(),
              "T[16]: HOM Override.\r\nThere is no Scenario named \"Nowhere\".; ShowTab HOM Study; refused");
    page.Picker().Pick("");
    page.Text("txtDuration").Paste("10");
    page.world.TakeTrace();
    EXPECT_EQ(page.Valid(), "valid");
}

TEST(OverrideTab, ReplacesTheOverrideByAnotherMadeFromTheView) {
    OverridePage page;
    const auto loaded = Stored("HOM Study", 12, 60);
    page.record->AddNolOverride(loaded, "HOM Study");
    page.record->AddNolOverride(Stored("PLM Study", 3, 4), "PLM Study");
    page.Load();
    page.record->HomOvr = "N";
    const char* const other = "PLM Study=42 PLM Study 3 4 30 5 log; ";
    EXPECT_EQ(page.Saved(), "Y " + std::string(other) + "HOM Study=77 HOM Study 12 60 -1 -1 ; ");
    page.Picker().Pick("Busy");
    page.Text("txtDuration").Paste("");
    EXPECT_EQ(page.Saved(), "Y " + std::string(other) + "HOM Study=77 HOM Study 13 -1 -1 -1 ; ");
    EXPECT_EQ(CaddisPickerStates().PickerStates().StatesForType({"Scenario"})->nLastDocumentId, 13);
    page.Picker().Pick("");
    EXPECT_EQ(page.Saved(), "Y " + std::string(other) + "HOM Study=77 HOM Study -1 -1 -1 -1 ; ");
    page.Text("txtDuration").Paste("abc");
    page.record->HomOvr = "N";
    EXPECT_EQ(FailureOf([&] { page.Saved(); }), "The Study Duration \"abc\" is no 32-bit number.");
    page.chkOverride.Click();
    EXPECT_EQ(page.Valid(), "SetTabState HOM Study off; MarkChanged; valid");
    EXPECT_EQ(page.Saved(), "N " + std::string(other) + "HOM Study=77 HOM Study -1 -1 -1 -1 ; ");
    EXPECT_EQ(page.SwitchOn().Text("txtDuration").Text(), "abc");
    EXPECT_EQ(loaded->Duration, 60);
}

TEST(OverrideTab, LoadsWhatTheRecordHolds) {
    const struct {
        const char* runMode;
        std::vector<std::shared_ptr<CNolOverride>> overrides;
        const char* view;
    } cases[] = {
        {"S", {}, "off:"},
        {"I", {}, "off:"},
        {"S", {Stored("PLM Study", 12, 60)}, "off:"},
        {"I", {Stored("PLM Study", 12, 60)}, "disabled off:"},
        {"I", {Stored("PLM Study", 12, 60), Stored("HOM Study", 12, 60)}, "on:Baseline 60"},
        {"S", {Stored("HOM Study", 0, 0)}, "on: "},
        {"S", {Stored("HOM Study", -1, -7)}, "on: "},
        {"S", {Stored("HOM Study", 5, 100000)}, "on: 100000"},
    };
    for (const auto& c : cases) {
        OverridePage page;
        page.record->RunMode = c.runMode;
        for (const auto& item : c.overrides) page.record->AddNolOverride(item, item->OverrideType);
        page.Load();
        const bool on = page.chkOverride.Value() == 1;
        EXPECT_EQ(page.tab.Field<Frame>("fraDuration").Visible(), on);
        EXPECT_EQ(page.tab.Field<Frame>("fraScenario").Visible(), on);
        EXPECT_EQ(std::string(page.chkOverride.Enabled() ? "" : "disabled ") +
                      (on ? "on:" + page.Picker().Text() + " " + page.Text("txtDuration").Text() : "off:"),
                  c.view);
    }
}

}  // namespace

}  // namespace NolSchedCtls::Testing
