#include <gtest/gtest.h>

#include <map>

#include "tabs/general/nol_sched_gen_tab.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

struct GeneralPage : OpenEntry {
    XNolSchedGenTab tab;

    GeneralPage() {
        TraceControl(*this, tab);
        record->EditorName = "Nightly";
        record->RunMode = "S";
        record->RptGrpId = 5;
        record->AutoPurge = "N";
        record->PurgeInterval = 1;
    }
    std::string Flags() const { return FlagsOf(*record) + "," + record->CreateFiles; }
};

TEST(GeneralTab, LoadsInOrderAndSilencesThePickerAloneAtFirst) {
    GeneralPage page;
    CNolSchedData& record = *page.record;
    record.HomOvr = record.PlmOvr = record.RfcOvr = record.VcsOvr = record.CreateFiles = "Y";
    record.RetrieveMode = "Q";
    record.RunMode = "I";
    record.PurgeInterval = 366;
    EXPECT_EQ(
        page.Load(page.tab),
        "MarkChanged; Nightly[48]: Warning! The purge interval specified in this Schedule  \r\n"
        "Entry falls outside the range valid for your user id.  \r\n"
        "It will be replaced by the maximum allowable value.; MarkChanged; "
        "MarkChanged; SetTabOverride HOM Study on; MarkChanged; SetTabOverride PLM Study on; "
        "MarkChanged; SetTabOverride RF Call Trace Study on; MarkChanged; SetTabOverride VCSA Study on; "
        "MarkChanged; ");
    EXPECT_EQ(record.PurgeInterval, 366);
    record.PurgeInterval = 365;
    record.RptGrpId = 77;
    EXPECT_EQ(page.Load(page.tab), "MarkChanged; ");
    record.PurgeInterval = 0;
    record.RunMode = "S";
    record.IsNew = true;
    EXPECT_EQ(page.Load(page.tab),
              "Nightly[48]: Warning! The purge interval that you have specified \r\n"
              "on the Schedule Options falls outside the range valid \r\n"
              "for your user id. The maximum allowable values will be \r\n"
              "used for this Schedule Entry.; ");
}

TEST(GeneralTab, ShowsChecksAndKeepsTheGroup) {
    const std::string missing = "T[16]: A NOL Group is required.; focus fdocRptGroup; refused";
    const std::string deleted =
        "T[16]: The report group associated with this temporary schedule entry has been deleted.  "
        "You can not edit this document.; refused";
    // Run mode, group, the visible field's text, the answer, the group that the picker then remembers.
    const std::tuple<const char*, int, const char*, std::string, int> cases[] = {
        {"S", 5, "picker North", "valid", 5}, {"S", 9, "picker ", missing, 0},
        {"S", 0, "picker ", missing, 0},      {"I", 5, "text North", "valid", 0},
        {"I", 9, "text ", deleted, 0},        {"I", 0, "text Zero", deleted, 0}};
    for (const auto& [mode, group, shown, answer, remembered] : cases) {
        GeneralPage page;
        page.record->RunMode = mode;
        page.record->RptGrpId = group;
        page.Load(page.tab);
        const auto& [picker, text] = std::tie(page.tab.fdocRptGroup, page.tab.txtRptGrp);
        EXPECT_NE(picker.Visible(), text.Visible());
        EXPECT_EQ(text.Visible() ? "text " + text.Text() : "picker " + picker.Text(), shown);
        EXPECT_EQ(page.Valid(page.tab), answer) << mode << group;
        page.tab.SaveState();
        const auto state = CaddisPickerStates().PickerStates().StatesForType({"NOL Group"});
        EXPECT_EQ(state->nLastDocumentId, remembered);
        page.record->RptGrpId = 1;
        const std::string failure = FailureOf([&] { page.tab.SaveData(); });
        EXPECT_EQ(Barred(failure, page.record->RptGrpId, page.Flags()),
                  answer == "valid" ? "no failure|5|N,N,N,N,N|"
                                    : "The entry \"Nightly\" has no study group to save.|1|,,,,|");
    }
}

TEST(GeneralTab, ChecksTheGroupAndThenThePurgeOptions) {
    GeneralPage page;
    page.Load(page.tab);
    page.tab.ctlPurgeOptions.PasteDays("0");
    page.TakeTrace();
    EXPECT_EQ(page.Valid(page.tab),
              "T[16]: The purge interval must be between 1 and 365 days inclusive.; refused");
    page.documents.clear();
    page.tab.SetVisible(false);
    EXPECT_EQ(page.Valid(page.tab), "T[16]: The NOL Group \"North\" has been deleted.; refused");
}

TEST(GeneralTab, ShowsExactFlagsAndEnablesTheKindsOfTheOverrides) {
    // The overrides by key and type, and the boxes, with "-" behind a disabled one.
    const std::pair<std::map<std::string, std::string>, const char*> cases[] = {
        {{}, "10000"},
        {{{"HOM Study", "HOM Study"}}, "10-0-0-0"},
        {{{"other", "VCSA Study"}, {"PLM Study", "RF Call Trace Study"}}, "1-0-000"},
        {{{"HOM Study", "hom study"}}, "1-0-0-0-0"}};
    for (const auto& [overrides, boxes] : cases) {
        GeneralPage page;
        for (const auto& [key, type] : overrides) page.record->AddNolOverride(MakeOverride(type), key);
        page.record->HomOvr = "Y";
        page.record->PlmOvr = page.record->CreateFiles = "y";
        page.record->RfcOvr = "N";
        page.Load(page.tab);
        const auto& tab = page.tab;
        std::string shown;
        for (const CheckBox* box : {&tab.chkHom, &tab.chkPlm, &tab.chkRfc, &tab.chkVcs, &tab.chkCreateFiles})
            shown += std::to_string(box->Value()) + (box->Enabled() ? "" : "-");
        EXPECT_EQ(shown, boxes);
        page.notify->SetTabState("VCSA Study", true);
        page.notify->SetTabState("vcsa study", false);
        page.tab.SaveData();
        EXPECT_EQ(page.Flags(), "Y,N,N,Y,N");
    }
}

TEST(GeneralTab, WritesTheRecordAtTheSaveButForHom) {
    GeneralPage page;
    page.Load(page.tab);
    XNolSchedGenTab& tab = page.tab;
    const std::pair<std::function<void()>, const char*> acts[] = {
        {[&] { tab.chkHom.SetValue(1); }, "MarkChanged; SetTabOverride HOM Study on; Y,,,,"},
        {[&] { tab.chkHom.SetValue(0); }, "MarkChanged; SetTabOverride HOM Study off; N,,,,"},
        {[&] { tab.chkHom.SetValue(2); }, "MarkChanged; SetTabOverride HOM Study on; Y,,,,"},
        {[&] { tab.chkPlm.SetValue(2); }, "MarkChanged; SetTabOverride PLM Study on; Y,,,,"},
        {[&] { tab.chkRfc.SetValue(1); }, "MarkChanged; SetTabOverride RF Call Trace Study on; Y,,,,"},
        {[&] { tab.chkVcs.SetValue(1); }, "MarkChanged; SetTabOverride VCSA Study on; Y,,,,"},
        {[&] { tab.chkCreateFiles.SetValue(1); }, "MarkChanged; Y,,,,"},
        {[&] { tab.ctlDownloadOptions.Pick("Manual"); }, "focus ctlDownloadOptions; MarkChanged; Y,,,,"},
        {[&] { tab.ctlPurgeOptions.Click(); }, "focus ctlPurgeOptions; MarkChanged; Y,,,,"},
        {[&] { tab.ctlPurgeOptions.PasteDays("12"); }, "MarkChanged; Y,,,,"},
        {[&] { tab.fdocRptGroup.Pick("Zero"); }, "focus fdocRptGroup; MarkChanged; Y,,,,"},
        {[&] { tab.SaveData(); }, "Y,Y,Y,Y,Y"}};
    for (const auto& [act, trace] : acts) {
        act();
        EXPECT_EQ(page.TakeTrace() + page.Flags(), trace);
    }
    const CNolSchedData& record = *page.record;
    EXPECT_EQ(Barred(record.RptGrpId, record.AutoPurge, record.PurgeInterval, record.RetrieveMode),
              "0|Y|12|M|");
    page.notify = nullptr;
    page.Load(tab);
    tab.chkHom.SetValue(0);
    EXPECT_EQ(page.Flags() + page.trace, "N,Y,Y,Y,Y");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
