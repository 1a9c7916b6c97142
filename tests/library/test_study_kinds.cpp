// The general tab and the pages of the four study kinds over one record and one notifier.
#include <gtest/gtest.h>

#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"
#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"
#include "NolSchedCtls/tabs/override/override_kind.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

struct Kind {
    const OverrideKind& kind;
    CheckBox XNolSchedGenTab::*pBox;
};

const Kind kinds[] = {{homOverride, &XNolSchedGenTab::chkHom},
                      {plmOverride, &XNolSchedGenTab::chkPlm},
                      {rfcOverride, &XNolSchedGenTab::chkRfc},
                      {vcsOverride, &XNolSchedGenTab::chkVcs}};

struct TwoTabs : OpenEntry {
    explicit TwoTabs(const Kind& kind = kinds[0])
        : page(std::make_unique<NolSchedOverrideTab>(kind.kind)),
          box(general.*kind.pBox),
          chkOverride(page->chkOverride) {}

    std::string LoadBoth(bool generalFirst) {
        std::string both = generalFirst ? Load(general) : "";
        both += Load(*page);
        return both + (generalFirst ? "" : Load(general));
    }
    std::string Boxes() {
        return Barred(box.Value(), chkOverride.Value(), page->fraDuration.Visible() ? "shown" : "hidden");
    }
    std::string After(CheckBox& clicked) { return clicked.Click() ? TakeTrace() + Boxes() : "no click"; }

    XNolSchedGenTab general;
    std::unique_ptr<NolSchedOverrideTab> page;
    CheckBox& box;
    CheckBox& chkOverride;
};

TEST(StudyKinds, OneClickReachesBothSides) {
    for (const Kind& kind : kinds)
        for (const bool generalFirst : {true, false}) {
            TwoTabs tabs(kind);
            tabs.LoadBoth(generalFirst);
            for (const std::string state : {"on", "off"}) {
                const std::string key(kind.kind.study.sKey),
                    boxes = state == "on" ? "1|1|shown|" : "0|0|hidden|";
                const std::string set = "SetTabState " + key + " " + state + "; ";
                const std::string told = "MarkChanged; SetTabOverride " + key + " " + state + "; " + set;
                EXPECT_EQ(tabs.After(tabs.box), told + "MarkChanged; " + set + boxes);
                tabs.After(tabs.box);
                EXPECT_EQ(tabs.After(tabs.chkOverride), set + told + "MarkChanged; " + boxes);
            }
        }
}

TEST(StudyKinds, LoadAnOverrideInEitherOrder) {
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
        EXPECT_EQ(tabs.Boxes(), "1|1|shown|");
    }
}

TEST(StudyKinds, HearTheirExactNameFromThePresentNotifierAlone) {
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
    EXPECT_EQ(tabs.Boxes(), "0|0|hidden|");
    tabs.page.reset();
    EXPECT_TRUE(tabs.box.Click());
    EXPECT_EQ(tabs.record->HomOvr, "Y");
}

TEST(StudyKinds, OfAnImmediateEntryAreEnabledWhereItHasOverrides) {
    for (const Kind& own : kinds) {
        const std::string key(own.kind.study.sKey);
        for (const Kind& other : kinds) {
            TwoTabs tabs(other);
            tabs.record->AddNolOverride(MakeOverride(key), key);
            tabs.record->RunMode = "I";
            tabs.LoadBoth(true);
            const bool isOwn = &other == &own;
            EXPECT_EQ(Barred(tabs.box.Enabled(), tabs.chkOverride.Enabled()), Barred(isOwn, isOwn)) << key;
        }
    }
}

}  // namespace
}  // namespace NolSchedCtls::Testing
