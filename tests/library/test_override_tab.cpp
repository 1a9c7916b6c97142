#include <gtest/gtest.h>

#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"
#include "NolSchedCtls/tabs/override/override_kind.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

const std::string notNumeric = "T[16]: Study Duration must be numeric.; focus txtDuration; refused";
const std::string outOfRange =
    "T[16]: Study Duration must be between 10 and 1439 minutes inclusive.; focus txtDuration; refused";

// One study kind's page, with the focus on the box as long as no user acts elsewhere.
struct OverridePage : OpenEntry {
    NolSchedOverrideTab tab;
    CheckBox& chkOverride = tab.chkOverride;
    TextBox& txtDuration = tab.txtDuration;

    explicit OverridePage(const OverrideKind& kind = homOverride) : tab(kind) {
        TraceControl(*this, tab);
        record->Id = 77;
    }
    XMarlet& Picker() { return tab.Field<XMarlet>("fdocCBScenario"); }
    void LoadAndSwitchOn() {
        Load(tab);
        chkOverride.SetValue(1);
        chkOverride.SetFocus();
        TakeTrace();
    }
    std::string Saved() { return tab.SaveData(), record->HomOvr + " " + OverridesOf(*record); }
};

TEST(OverrideTab, ReadsWhatTheTextBoxHolds) {
    const auto answer = [](const std::string& text) {
        OverridePage page;
        page.LoadAndSwitchOn();
        page.txtDuration.SetText(text);
        page.TakeTrace();
        const std::string answered = page.Valid(page.tab);
        if (answered != "valid") return answered;
        page.tab.SaveData();
        return std::to_string(page.record->GetOverride("HOM Study")->Duration);
    };
    const std::pair<const char*, const char*> good[] = {
        {"", "-1"},     {"10", "10"},  {"1439", "1439"}, {"0015", "15"}, {"10.5", "10"},
        {"11.5", "12"}, {"9.5", "10"}, {"1e2", "100"},   {"15 ", "15"},  {"1439.4", "1439"}};
    for (const auto& [text, duration] : good) EXPECT_EQ(answer(text), duration);
    for (const char* text :
         {"9", "1440", "1439.5", "0", "1.5", "-5", "+15", " 15", "1e9", ".5", "1e99999", "65551"})
        EXPECT_EQ(answer(text), outOfRange) << text;
    for (const char* text :
         {"abc", "  ", ".", "-", "+-15", "1e", "0x1F", "nan", "inf", "1,0", "\xFF\xFE", "15m"})
        EXPECT_EQ(answer(text), notNumeric) << text;
    EXPECT_EQ(answer(std::string(1 << 20, '9')), outOfRange);
    EXPECT_EQ(answer(std::string(1 << 20, 'x')), notNumeric);
}

TEST(OverrideTab, EachNumberHasItsRange) {
    // Kind, box, what it refuses, what it takes, the refusal.
    const std::tuple<const OverrideKind&, const char*, const char*, const char*, std::string> cases[] = {
        {homOverride, "txtDuration", "9 1440", "10 1439",
         "Study Duration must be between 10 and 1439 minutes inclusive."},
        {plmOverride, "txtDuration", "0 1441", "1 1440",
         "Study Duration must be between 1 and 1440 minutes inclusive."},
        {plmOverride, "txtRetrieveDelay", "0 11", "1 10",
         "Retrieve Delay must be between 1 and 10 minutes inclusive."},
        {rfcOverride, "txtDuration", "14 241", "15 240",
         "Study Duration must be between 15 and 240 minutes inclusive."},
        {rfcOverride, "txtPollingInterval", "1 61", "2 60",
         "Polling Interval must be between 2 and 60 seconds inclusive."},
        {vcsOverride, "txtDuration", "14 466 495", "15 480",
         "Study Duration must be between 15 and 480 minutes inclusive and \r\nexpressed in increments of "
         "quarter "
         "hours (15, 30, 45,etc)."},
        {vcsOverride, "txtRetrieveDelay", "0 121", "1 120",
         "Retrieve Delay must be between 1 and 120 minutes inclusive."}};
    for (const auto& [kind, box, refused, taken, refusal] : cases) {
        OverridePage page(kind);
        page.LoadAndSwitchOn();
        const auto expect = [&page, name = box](const char* numbers, const std::string& answer) {
            std::istringstream words(numbers);
            for (std::string number; words >> number;) {
                page.tab.Field<TextBox>(name).SetText(number);
                page.TakeTrace();
                EXPECT_EQ(page.Valid(page.tab), answer) << number;
            }
        };
        const std::string end = std::string("; focus ") + box + "; refused";
        expect(refused, "T[16]: " + refusal + end);
        expect("x", "T[16]: " + refusal.substr(0, refusal.find(" must")) + " must be numeric." + end);
        expect(taken, "valid");
    }
}

TEST(OverrideTab, ChecksTheScenarioBeforeTheDuration) {
    const std::string deleted =
        "T[16]: HOM Override.\r\nThe Scenario \"Busy\" has been deleted.; ShowTab HOM Study; ";
    OverridePage page;
    page.record->AddNolOverride(MakeOverride("HOM Study", 13, 9), "HOM Study");
    page.LoadAndSwitchOn();
    EXPECT_EQ(page.Valid(page.tab), outOfRange);
    page.documents.pop_back();
    EXPECT_EQ(page.Valid(page.tab), deleted + "focus fdocCBScenario; refused");
    page.chkOverride.SetFocus();
    page.TakeTrace();
    page.tab.SetVisible(false);
    EXPECT_EQ(page.Valid(page.tab), deleted + "refused");
    page.Picker().Pick("");
    for (const char32_t key : {keyBackspace, U'1', U'x', U'0'}) page.txtDuration.Key(key);
    EXPECT_EQ(page.txtDuration.Text(), "10");
    page.TakeTrace();
    EXPECT_EQ(page.Valid(page.tab), "valid");
}

TEST(OverrideTab, ReplacesTheOverrideByAnotherMadeFromTheView) {
    OverridePage page;
    const auto loaded = MakeOverride("HOM Study", 12, 60);
    page.record->AddNolOverride(loaded, "HOM Study");
    page.record->AddNolOverride(MakeOverride("PLM Study", 3, 4), "PLM Study");
    page.LoadAndSwitchOn();
    page.record->HomOvr = "N";
    const std::string other = "PLM Study=42 PLM Study 3 4 0 5 log; HOM Study=77 HOM Study ";
    EXPECT_EQ(page.Saved(), "Y " + other + "12 60 -1 -1 ; ");
    EXPECT_EQ(loaded->NOL_OverrideId, 42);
    page.Picker().Pick("Busy");
    page.txtDuration.Paste("");
    EXPECT_EQ(page.Saved(), "Y " + other + "13 -1 -1 -1 ; ");
    EXPECT_EQ(CaddisPickerStates().PickerStates().StatesForType({"Scenario"})->nLastDocumentId, 13);
    page.Picker().Pick("");
    page.txtDuration.Paste("abc");
    page.record->HomOvr = "N";
    EXPECT_EQ(FailureOf([&] { page.Saved(); }), "The Study Duration \"abc\" is no 32-bit number.");
    page.chkOverride.SetValue(0);
    page.TakeTrace();
    EXPECT_EQ(page.Valid(page.tab), "valid");
    EXPECT_EQ(page.Saved(), "N " + other + "13 -1 -1 -1 ; ");
    page.chkOverride.SetValue(1);
    EXPECT_EQ(page.txtDuration.Text(), "abc");
}

TEST(OverrideTab, LoadsWhatTheRecordHolds) {
    const auto plm = MakeOverride("PLM Study", 12, 60);
    // Run mode, overrides, and the box, enabled or not, the frames shown or not, the texts.
    const std::tuple<const char*, std::vector<std::shared_ptr<CNolOverride>>, const char*> cases[] = {
        {"S", {}, "0|1|00|||"},
        {"S", {plm}, "0|1|00|||"},
        {"I", {plm}, "0|0|00|||"},
        {"I", {plm, MakeOverride("HOM Study", 12, 60)}, "1|1|11|Baseline|60|"},
        {"S", {MakeOverride("HOM Study", 0, 0)}, "1|1|11|||"},
        {"S", {MakeOverride("HOM Study", 5, 100000)}, "1|1|11||100000|"}};
    for (const auto& [mode, overrides, view] : cases) {
        OverridePage page;
        page.record->RunMode = mode;
        for (const auto& item : overrides) page.record->AddNolOverride(item, item->OverrideType);
        page.Load(page.tab);
        std::string frames;
        for (const char* name : {"fraScenario", "fraDuration"})
            frames += page.tab.Field<Frame>(name).Visible() ? '1' : '0';
        EXPECT_EQ(Barred(page.chkOverride.Value(), page.chkOverride.Enabled(), frames, page.Picker().Text(),
                         page.txtDuration.Text()),
                  view);
    }
}

TEST(StudyKinds, OneClickReachesBothSides) {
    const std::pair<const OverrideKind&, const char*> kinds[] = {
        {homOverride, "chkHom"}, {plmOverride, "chkPlm"}, {rfcOverride, "chkRfc"}, {vcsOverride, "chkVcs"}};
    for (const auto& [kind, name] : kinds) {
        OverridePage page(kind);
        XNolSchedGenTab general;
        page.Load(page.tab);
        page.Load(general);
        CheckBox& box = general.Field<CheckBox>(name);
        page.chkOverride.SetFocus();
        const auto click = [&](CheckBox& clicked) {
            page.TakeTrace();
            clicked.Click();
            return page.TakeTrace() +
                   Barred(box.Value(), page.chkOverride.Value(), page.tab.fraDuration.Visible());
        };
        for (const bool isOn : {true, false}) {
            const std::string state = std::string(kind.study.sKey) + (isOn ? " on; " : " off; ");
            const std::string set = "SetTabState " + state, boxes = isOn ? "1|1|1|" : "0|0|0|";
            const std::string told = "MarkChanged; SetTabOverride " + state + set;
            EXPECT_EQ(click(box), told + "MarkChanged; " + set + boxes);
            box.Click();
            EXPECT_EQ(click(page.chkOverride), set + told + "MarkChanged; " + boxes);
        }
    }
}

TEST(StudyKinds, HearTheirExactNameFromThePresentNotifierAlone) {
    OverridePage page;
    page.Load(page.tab);
    const auto former = std::exchange(page.notify, std::make_shared<CPaviseNotify>());
    page.Load(page.tab);
    former->SetTabOverride("HOM Study", true);
    for (const char* name : {"PLM Study", "hom study", ""}) page.notify->SetTabOverride(name, true);
    EXPECT_EQ(page.chkOverride.Value(), 0);
}

}  // namespace
}  // namespace NolSchedCtls::Testing
