#include <gtest/gtest.h>

#include <map>

#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
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

TEST(GeneralTab, ShowsExactFlagsAndEnablesTheKindsOfTheOverrides) {
    // The overrides by key and type, and the boxes, with "-" after a disabled one.
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
        {[&] { tab.chkCreateFiles.SetValue(1); }, "MarkChanged; Y,,,,"},
        {[&] { tab.ctlDownloadOptions.Pick("Manual"); }, "focus ctlDownloadOptions; MarkChanged; Y,,,,"},
        {[&] { tab.ctlPurgeOptions.Click(); }, "focus ctlPurgeOptions; MarkChanged; Y,,,,"},
        {[&] { tab.ctlPurgeOptions.PasteDays("12"); }, "MarkChanged; Y,,,,"},
        {[&] { tab.fdocRptGroup.Pick("Zero"); }, "focus fdocRptGroup; MarkChanged; Y,,,,"},
        {[&] { tab.SaveData(); }, "Y,Y,N,N,Y"}};
    for (const auto& [act, trace] : acts) {
        act();
        EXPECT_EQ(page.TakeTrace() + page.Flags(), trace);
    }
    const CNolSchedData& record = *page.record;
    EXPECT_EQ(Barred(record.RptGrpId, record.AutoPurge, record.PurgeInterval, record.RetrieveMode),
              "0|Y|12|M|");
    const auto state = CaddisPickerStates().PickerStates().StatesForType({"NOL Group"});
    tab.fdocRptGroup.Pick("North");
    for (const char* mode : {"I", "S"}) {
        page.record->RunMode = mode;
        tab.SaveState();
        EXPECT_EQ(state->nLastDocumentId, *mode == 'S' ? 5 : 0);
    }
    tab.fdocRptGroup.Pick("");
    EXPECT_EQ(FailureOf([&] { tab.SaveData(); }), "The entry \"Nightly\" has no study group to save.");
    page.notify = nullptr;
    page.TakeTrace();
    page.Load(tab);
    tab.chkHom.SetValue(0);
    EXPECT_EQ(page.Flags() + page.trace, "N,Y,N,N,Y");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
