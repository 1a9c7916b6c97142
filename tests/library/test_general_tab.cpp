#include <gtest/gtest.h>

#include "records/study_kinds.h"
#include "tabs/general/nol_sched_gen_tab.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {

namespace {

constexpr const char* groupDeleted =
    "T[16]: The report group associated with this temporary schedule entry has been deleted.  You can not edit this "
    "document.; ";

struct GeneralPage {
    InstalledWorld world;
    std::shared_ptr<CNolSchedData> record = std::make_shared<CNolSchedData>();
    std::shared_ptr<CPaviseNotify> notify = TracedNotify(world);
    XNolSchedGenTab tab;

    GeneralPage() {
        TraceControl(world, tab);
        world.documents = {{5, "North", {"NOL Group"}}, {0, "Zero", {"NOL Group"}}, {9, "Busy", {"Scenario"}}};
        record->EditorName = "Nightly";
        record->RunMode = "S";
        record->RptGrpId = 5;
        record->AutoPurge = "N";
        record->PurgeInterval = 1;
    }
    std::string Load() {
        tab.LoadData(record, "", notify);
        return world.TakeTrace();
    }
    std::string Valid() {
        const bool valid = tab.IsTabValid("T");
        return world.TakeTrace() + (valid ? "valid" : "refused");
    }
    std::string Flags() const {
        return record->HomOvr + "," + record->PlmOvr + "," + record->RfcOvr + "," + record->VcsOvr + "," +
               record->CreateFiles;
    }
    std::string Boxes() const {
        std::string boxes;
        for (const CheckBox* box : {&tab.chkHom, &tab.chkPlm, &tab.chkRfc, &tab.chkVcs, &tab.chkCreateFiles})
            boxes += std::to_string(box->Value()) + (box->Enabled() ? " " : "- ");
        return boxes;
    }
};

TEST(GeneralTab, LoadsInOrderAndSilencesThePickerAloneAtFirst) {
    GeneralPage page;
    CNolSchedData& record = *page.record;
    record.HomOvr = record.PlmOvr = record.RfcOvr = record.VcsOvr = record.CreateFiles = "Y";
    record.RetrieveMode = "Q";
    record.PurgeInterval = 366;
    EXPECT_EQ(page.Load(),
              "MarkChanged; Nightly[48]: Warning! The purge interval specified in this Schedule  \r\n"
              "Entry falls outside the range valid for your user id.  \r\n"
              "It will be replaced by the maximum allowable value.; MarkChanged; "
              "MarkChanged; SetTabOverride HOM Study on; MarkChanged; SetTabOverride PLM Study on; "
              "MarkChanged; SetTabOverride RF Call Trace Study on; MarkChanged; SetTabOverride VCSA Study on; "
              "MarkChanged; ");
    EXPECT_EQ(page.record->PurgeInterval, 366);
    record.RptGrpId = 77;
    record.PurgeInterval = 365;
    EXPECT_EQ(page.Load(), "MarkChanged; ");
    record.PurgeInterval = 0;
    record.IsNew = true;
    record.RunMode = "I";
    EXPECT_EQ(page.Load(),
              "Nightly[48]: Warning! The purge interval that you have specified \r\n"
              "on the Schedule Options falls outside the range valid \r\n"
              "for your user id. The maximum allowable values will be \r\n"
              "used for this Schedule Entry.; ");
}

TEST(GeneralTab, ShowsAndChecksTheGroup) {
    const struct {
        const char* runMode;
        std::int32_t group;
        const char* shown;  // the field that is visible, and its text
        const char* valid;
    } cases[] = {
        {"S", 5, "picker North", "valid"},
        {"S", 9, "picker ", "T[16]: A NOL Group is required.; focus fdocRptGroup; refused"},
        {"S", 0, "picker ", "T[16]: A NOL Group is required.; focus fdocRptGroup; refused"},
        {"I", 5, "text North", "valid"},
        {"I", 9, "text ", groupDeleted},
        {"I", 0, "text Zero", groupDeleted},
    };
    for (const auto& c : cases) {
        GeneralPage page;
        page.record->RunMode = c.runMode;
        page.record->RptGrpId = c.group;
        page.Load();
        const auto& tab = page.tab;
        EXPECT_NE(tab.fdocRptGroup.Visible(), tab.txtRptGrp.Visible());
        EXPECT_FALSE(tab.txtRptGrp.Enabled());
        EXPECT_EQ(tab.txtRptGrp.Visible() ? "text " + tab.txtRptGrp.Text() : "picker " + tab.fdocRptGroup.Text(),
                  c.shown);
        const std::string expected = c.valid == groupDeleted ? groupDeleted + std::string("refused") : c.valid;
        EXPECT_EQ(page.Valid(), expected);
        const bool isChosen = std::string(c.valid) == "valid";
        page.tab.SaveState();
        const auto state = CaddisPickerStates().PickerStates().StatesForType({"NOL Group"});
        EXPECT_EQ(state->nLastDocumentId, isChosen && *c.runMode == 'S' ? 5 : 0);
        page.record->RptGrpId = 1;
        EXPECT_EQ(FailureOf([&] { page.tab.SaveData(); }),
                  isChosen ? "no failure" : "The entry \"Nightly\" has no study group to save.");
        EXPECT_EQ(std::to_string(page.record->RptGrpId) + page.Flags(), isChosen ? "5N,N,N,N,N" : "1,,,,");
    }
}

TEST(GeneralTab, AsksTheGroupFirstAndThenThePurgeOptions) {
    GeneralPage page;
    page.Load();
    page.tab.ctlPurgeOptions.PasteDays("0");
    page.world.TakeTrace();
    EXPECT_EQ(page.Valid(), "T[16]: The purge interval must be between 1 and 365 days inclusive.; refused");
    page.world.documents.clear();
    EXPECT_EQ(page.Valid(), "T[16]: The NOL Group \"North\" has been deleted.; focus fdocRptGroup; refused");
    page.tab.Frame5.SetFocus();
    page.tab.SetVisible(false);
    page.world.TakeTrace();
    EXPECT_EQ(page.Valid(), "T[16]: The NOL Group \"North\" has been deleted.; refused");
}

TEST(GeneralTab, ShowsExactFlagsAndEnablesTheKindsOfTheOverrides) {
    const struct {
        std::vector<std::pair<const char*, const char*>> overrides;  // key and type
        const char* boxes;                                           // "-" behind a disabled one
    } cases[] = {
        {{}, "1 0 0 0 0 "},
        {{{"HOM Study", "HOM Study"}}, "1 0- 0- 0- 0 "},
        {{{"other", "VCSA Study"}, {"PLM Study", "RF Call Trace Study"}}, "1- 0- 0 0 0 "},
        {{{"HOM Study", "hom study"}}, "1- 0- 0- 0- 0 "},
    };
    for (const auto& c : cases) {
        GeneralPage page;
        for (const auto& [key, type] : c.overrides) {
            auto item = std::make_shared<CNolOverride>();
            item->OverrideType = type;
            page.record->AddNolOverride(item, key);
        }
        page.record->HomOvr = "Y";
        page.record->PlmOvr = page.record->CreateFiles = "y";
        page.record->RfcOvr = "N";
        page.Load();
        EXPECT_EQ(page.Boxes(), c.boxes);
        page.notify->SetTabState("VCSA Study", true);
        page.notify->SetTabState("vcsa study", false);
        EXPECT_EQ(page.tab.chkVcs.Value(), 1);
        page.tab.SaveData();
        EXPECT_EQ(page.Flags(), "Y,N,N,Y,N");
    }
}

TEST(GeneralTab, WritesTheRecordAtTheSaveButForHom) {
    GeneralPage page;
    page.Load();
    XNolSchedGenTab& tab = page.tab;
    const struct {
        std::function<void()> act;
        const char* trace;
        const char* flags;
    } acts[] = {
        {[&] { tab.chkHom.Click(); }, "focus chkHom; MarkChanged; SetTabOverride HOM Study on; ", "Y,,,,"},
        {[&] { tab.chkHom.Click(); }, "MarkChanged; SetTabOverride HOM Study off; ", "N,,,,"},
        {[&] { tab.chkHom.SetValue(2); }, "MarkChanged; SetTabOverride HOM Study on; ", "Y,,,,"},
        {[&] { tab.chkPlm.SetValue(2); }, "MarkChanged; SetTabOverride PLM Study on; ", "Y,,,,"},
        {[&] { tab.chkRfc.SetValue(1); }, "MarkChanged; SetTabOverride RF Call Trace Study on; ", "Y,,,,"},
        {[&] { tab.chkVcs.SetValue(1); }, "MarkChanged; SetTabOverride VCSA Study on; ", "Y,,,,"},
        {[&] { tab.chkCreateFiles.SetValue(1); }, "MarkChanged; ", "Y,,,,"},
        {[&] { tab.ctlDownloadOptions.SetDownloadMode("M"); }, "MarkChanged; ", "Y,,,,"},
        {[&] { tab.ctlPurgeOptions.Click(); }, "focus ctlPurgeOptions; MarkChanged; ", "Y,,,,"},
        {[&] { tab.ctlPurgeOptions.PasteDays("12"); }, "MarkChanged; ", "Y,,,,"},
        {[&] { tab.fdocRptGroup.Pick("Zero"); }, "focus fdocRptGroup; MarkChanged; ", "Y,,,,"},
        {[&] { tab.SaveData(); }, "", "Y,Y,Y,Y,Y"},
    };
    for (const auto& [act, trace, flags] : acts) {
        act();
        EXPECT_EQ(page.world.TakeTrace(), trace);
        EXPECT_EQ(page.Flags(), flags);
    }
    EXPECT_EQ(page.record->RptGrpId, 0);
    EXPECT_EQ(page.record->AutoPurge + std::to_string(page.record->PurgeInterval) + page.record->RetrieveMode, "Y12M");
    page.notify = nullptr;
    page.Load();
    tab.chkHom.SetValue(0);
    EXPECT_EQ(page.Flags() + page.world.trace, "N,Y,Y,Y,Y");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
