#include <gtest/gtest.h>

#include "tabs/general/nol_sched_gen_tab.h"
#include "tabs/override/nol_sched_override_tab.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

// The general tab and the HOM tab over one record and one notifier.
struct TwoTabs : OpenEntry {
    XNolSchedGenTab general;
    std::unique_ptr<XNolSchedHomOvr> hom = std::make_unique<XNolSchedHomOvr>();
    CheckBox& chkOverride = hom->Field<CheckBox>("chkOverride");

    std::string LoadBoth(bool generalFirst) {
        std::string both = generalFirst ? Load(general) : "";
        both += Load(*hom);
        return both + (generalFirst ? "" : Load(general));
    }
    std::string After(CheckBox& box) { return box.Click() ? TakeTrace() + Boxes() : "no click"; }
    std::string Boxes() {
        const bool shown =
            hom->Field<Frame>("fraDuration").Visible() && hom->Field<Frame>("fraScenario").Visible();
        return Barred(general.chkHom.Value(), chkOverride.Value(), shown ? "shown" : "hidden",
                      record->HomOvr);
    }
};

TEST(OverrideExchange, OneClickReachesBothSides) {
    for (const bool generalFirst : {true, false}) {
        TwoTabs tabs;
        tabs.LoadBoth(generalFirst);
        EXPECT_EQ(tabs.Boxes(), "0|0|hidden||");
        EXPECT_EQ(tabs.After(tabs.general.chkHom),
                  "MarkChanged; SetTabOverride HOM Study on; SetTabState HOM Study on; MarkChanged; "
                  "SetTabState HOM Study on; 1|1|shown|Y|");
        EXPECT_EQ(tabs.After(tabs.general.chkHom),
                  "MarkChanged; SetTabOverride HOM Study off; SetTabState HOM Study off; MarkChanged; "
                  "SetTabState HOM Study off; 0|0|hidden|N|");
        EXPECT_EQ(tabs.After(tabs.chkOverride),
                  "SetTabState HOM Study on; MarkChanged; SetTabOverride HOM Study on; "
                  "SetTabState HOM Study on; MarkChanged; 1|1|shown|Y|");
        EXPECT_EQ(tabs.After(tabs.chkOverride),
                  "SetTabState HOM Study off; MarkChanged; SetTabOverride HOM Study off; "
                  "SetTabState HOM Study off; MarkChanged; 0|0|hidden|N|");
    }
}

TEST(OverrideExchange, LoadsAnOverrideInEitherOrder) {
    const std::string general =
        "MarkChanged; MarkChanged; SetTabOverride HOM Study on; ";  // purge, then the box
    const std::string hom =  // the box, scenario, duration, and the state at last
        "SetTabState HOM Study on; MarkChanged; MarkChanged; MarkChanged; SetTabState HOM Study on; ";
    for (const bool generalFirst : {true, false}) {
        TwoTabs tabs;
        tabs.record->PurgeInterval = 30;
        tabs.record->AddNolOverride(MakeOverride("HOM Study", 12, 60), "HOM Study");
        EXPECT_EQ(tabs.LoadBoth(generalFirst),
                  generalFirst ? general + hom : hom + general + "SetTabState HOM Study on; ");
        EXPECT_EQ(tabs.Boxes(), "1|1|shown|Y|");
    }
}

TEST(OverrideExchange, OnlyTheExactKindAndThePresentNotifierAreHeard) {
    TwoTabs tabs;
    tabs.LoadBoth(true);
    const auto former = std::exchange(tabs.notify, std::make_shared<CPaviseNotify>());
    tabs.LoadBoth(true);
    for (const char* name : {"PLM Study", "hom study", "HOM Study ", ""}) {
        tabs.notify->SetTabOverride(name, true);
        tabs.notify->SetTabState(name, true);
    }
    former->SetTabOverride("HOM Study", true);
    former->SetTabState("HOM Study", true);
    EXPECT_EQ(tabs.Boxes(), "0|0|hidden||");
    tabs.hom.reset();
    EXPECT_TRUE(tabs.general.chkHom.Click());
    EXPECT_EQ(tabs.record->HomOvr, "Y");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
