#include <gtest/gtest.h>

#include "tabs/general/nol_sched_gen_tab.h"
#include "tabs/override/nol_sched_override_tab.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {

namespace {

// A stored entry in its general tab and its HOM tab, over one record and one notifier.
struct Editor {
    InstalledWorld world;
    std::shared_ptr<CNolSchedData> record = std::make_shared<CNolSchedData>();
    std::shared_ptr<CPaviseNotify> notify = TracedNotify(world);
    XNolSchedGenTab general;
    std::unique_ptr<XNolSchedHomOvr> hom = std::make_unique<XNolSchedHomOvr>();
    CheckBox& chkOverride = hom->Field<CheckBox>("chkOverride");

    Editor() { record->PurgeInterval = 30; }

    void AddOverride() {
        auto item = std::make_shared<CNolOverride>();
        item->Initialize(42, "HOM Study", 12, 60, -1, -1, "");
        world.documents = {{12, "Baseline", {"Scenario"}}};
        record->AddNolOverride(item, "HOM Study");
    }
    std::string Load(bool generalFirst) {
        if (generalFirst) general.LoadData(record, "", notify);
        hom->LoadData(record, "", notify);
        if (!generalFirst) general.LoadData(record, "", notify);
        return world.TakeTrace();
    }
    std::string After(CheckBox& box) {
        EXPECT_TRUE(box.Click());
        return world.TakeTrace() + Boxes();
    }
    std::string Boxes() {
        return "general " + std::to_string(general.chkHom.Value()) + " own " +
               std::to_string(chkOverride.Value()) + (hom->Field<Frame>("fraDuration").Visible() ? " shown" : "") +
               (hom->Field<Frame>("fraScenario").Visible() ? " shown " : " ") + record->HomOvr;
    }
};

TEST(OverrideExchange, OneClickReachesBothSides) {
    for (const bool generalFirst : {true, false}) {
        Editor editor;
        editor.Load(generalFirst);
        EXPECT_EQ(editor.Boxes(), "general 0 own 0 ");
        EXPECT_EQ(editor.After(editor.general.chkHom),
                  "MarkChanged; SetTabOverride HOM Study on; SetTabState HOM Study on; MarkChanged; "
                  "SetTabState HOM Study on; general 1 own 1 shown shown Y");
        EXPECT_EQ(editor.After(editor.general.chkHom),
                  "MarkChanged; SetTabOverride HOM Study off; SetTabState HOM Study off; MarkChanged; "
                  "SetTabState HOM Study off; general 0 own 0 N");
        EXPECT_EQ(editor.After(editor.chkOverride),
                  "SetTabState HOM Study on; MarkChanged; SetTabOverride HOM Study on; "
                  "SetTabState HOM Study on; MarkChanged; general 1 own 1 shown shown Y");
        EXPECT_EQ(editor.After(editor.chkOverride),
                  "SetTabState HOM Study off; MarkChanged; SetTabOverride HOM Study off; "
                  "SetTabState HOM Study off; MarkChanged; general 0 own 0 N");
    }
}

TEST(OverrideExchange, LoadsAnOverrideInEitherOrder) {
    const std::string general =
        "MarkChanged; MarkChanged; SetTabOverride HOM Study on; ";  // the purge options, then the box
    const std::string hom =  // the box, the scenario, the duration, and the state at last
        "SetTabState HOM Study on; MarkChanged; MarkChanged; MarkChanged; SetTabState HOM Study on; ";
    for (const bool generalFirst : {true, false}) {
        Editor editor;
        editor.AddOverride();
        EXPECT_EQ(editor.Load(generalFirst), generalFirst ? general + hom : hom + general + "SetTabState HOM Study on; ");
        EXPECT_EQ(editor.Boxes(), "general 1 own 1 shown shown Y");
    }
}

TEST(OverrideExchange, AFlagWithoutAnOverrideIsSwitchedOffByTheTabThatLoadsLast) {
    Editor editor;
    editor.record->HomOvr = "Y";
    EXPECT_EQ(editor.Load(true),
              "MarkChanged; MarkChanged; SetTabOverride HOM Study on; SetTabState HOM Study off; MarkChanged; "
              "SetTabOverride HOM Study off; SetTabState HOM Study off; ");
    EXPECT_EQ(editor.Boxes(), "general 0 own 0 N");
}

TEST(OverrideExchange, OnlyTheExactKindAndThePresentNotifierAreHeard) {
    Editor editor;
    editor.Load(true);
    const auto former = std::exchange(editor.notify, TracedNotify(editor.world));
    editor.Load(true);
    for (const char* name : {"PLM Study", "hom study", "HOM Study ", ""}) {
        editor.notify->SetTabOverride(name, true);
        editor.notify->SetTabState(name, true);
    }
    former->SetTabOverride("HOM Study", true);
    former->SetTabState("HOM Study", true);
    EXPECT_EQ(editor.Boxes(), "general 0 own 0 ");
    editor.hom.reset();
    editor.world.TakeTrace();
    EXPECT_TRUE(editor.general.chkHom.Click());
    EXPECT_EQ(editor.world.trace, "MarkChanged; SetTabOverride HOM Study on; ");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
