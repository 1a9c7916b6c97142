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

}  // namespace
}  // namespace NolSchedCtls::Testing
