// The four study kinds side by side: one page a kind, over one table.
#include <gtest/gtest.h>

#include "tabs/general/nol_sched_gen_tab.h"
#include "tabs/override/nol_sched_override_tab.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

struct FieldCase {
    const char* name;
    std::size_t characters;
    std::vector<const char*> good;
    std::vector<const char*> bad;
    const char* message;
    const char* subject;
};

struct KindCase {
    const OverrideKind& kind;
    CheckBox XNolSchedGenTab::*pBox;
    std::vector<FieldCase> fields;
    const char* saved;  // after the last good value of each field
};

const KindCase kindCases[] = {
    {homOverride,
     &XNolSchedGenTab::chkHom,
     {{"txtDuration",
       4,
       {"1439", "10"},
       {"9", "1440", "0"},
       "Study Duration must be between 10 and 1439 minutes inclusive.",
       "Study Duration"}},
     "-1 10 -1 -1"},
    {plmOverride,
     &XNolSchedGenTab::chkPlm,
     {{"txtDuration",
       4,
       {"1", "1440"},
       {"0", "1441"},
       "Study Duration must be between 1 and 1440 minutes inclusive.",
       "Study Duration"},
      {"txtRetrieveDelay",
       2,
       {"1", "10", "07"},
       {"0", "11"},
       "Retrieve Delay must be between 1 and 10 minutes inclusive.",
       "Retrieve Delay"}},
     "-1 1440 -1 7"},
    {rfcOverride,
     &XNolSchedGenTab::chkRfc,
     {{"txtDuration",
       3,
       {"15", "240"},
       {"14", "241"},
       "Study Duration must be between 15 and 240 minutes inclusive.",
       "Study Duration"},
      {"txtPollingInterval",
       2,
       {"2", "60"},
       {"1", "61", "0"},
       "Polling Interval must be between 2 and 60 seconds inclusive.",
       "Polling Interval"}},
     "-1 240 60 -1"},
    {vcsOverride,
     &XNolSchedGenTab::chkVcs,
     {{"txtDuration",
       3,
       {"15", "30", "480"},
       {"14", "16", "466", "495", "0"},
       "Study Duration must be between 15 and 480 minutes inclusive and \r\n"
       "expressed in increments of quarter hours (15, 30, 45,etc).",
       "Study Duration"},
      {"txtRetrieveDelay",
       3,
       {"1", "120"},
       {"0", "121"},
       "Retrieve Delay must be between 1 and 120 minutes inclusive.",
       "Retrieve Delay"}},
     "-1 480 -1 120"},
};

class StudyKinds : public testing::TestWithParam<KindCase>, protected OpenEntry {
  protected:
    StudyKinds() { TraceControl(*this, tab); }

    std::string Refused(const FieldCase& field, const std::string& text, const std::string& message) {
        box.SetFocus();
        tab.Field<TextBox>(field.name).SetText(text);
        TakeTrace();
        const std::string expected = "T[16]: " + message + "; focus " + field.name + "; refused";
        const std::string answered = Valid(tab);
        return answered == expected ? "as told" : answered;
    }

    const KindCase& row = GetParam();
    const std::string key{row.kind.study.sKey};
    NolSchedOverrideTab tab{row.kind};
    CheckBox& box = tab.Field<CheckBox>("chkOverride");
};

TEST_P(StudyKinds, ChecksItsRangesInOrderAndSavesWhatItShows) {
    Load(tab);
    box.Click();
    TakeTrace();
    EXPECT_EQ(Valid(tab), "valid") << "all fields empty";
    tab.SaveData();
    EXPECT_EQ(OverridesOf(*record), key + "=0 " + key + " -1 -1 -1 -1 ; ");
    for (auto field = row.fields.rbegin(); field != row.fields.rend(); ++field) {
        EXPECT_EQ(tab.Field<TextBox>(field->name).MaxLength(), field->characters);
        for (const char* text : field->bad)
            EXPECT_EQ(Refused(*field, text, field->message), "as told") << text;
        EXPECT_EQ(Refused(*field, "x", field->subject + std::string(" must be numeric.")), "as told");
    }  // from the last to the first: each failure is reported ahead of those of the fields below
    for (const auto& field : row.fields) tab.Field<TextBox>(field.name).SetText("");
    TakeTrace();
    for (const auto& field : row.fields)
        for (const char* text : field.good) {
            tab.Field<TextBox>(field.name).SetText(text);
            TakeTrace();
            EXPECT_EQ(Valid(tab), "valid") << text;
        }
    tab.SaveData();
    EXPECT_EQ(OverridesOf(*record), key + "=0 " + key + " " + row.saved + " ; ");
    EXPECT_EQ((*record).*row.kind.study.pFlag, "Y");
}

TEST_P(StudyKinds, BothBoxesSwitchItAndOnlyItsOwnIsEnabledBesideAnotherKind) {
    XNolSchedGenTab general;
    Load(general);
    Load(tab);
    const auto clicked = [this](CheckBox& clickedBox) {
        clickedBox.SetFocus();
        TakeTrace();
        clickedBox.Click();
        return TakeTrace();
    };
    for (const std::string state : {"on", "off"}) {
        const std::string set = "SetTabState " + key + " " + state + "; ";
        const std::string told = "MarkChanged; SetTabOverride " + key + " " + state + "; " + set;
        EXPECT_EQ(clicked(general.*row.pBox), told + "MarkChanged; " + set);
        clicked(general.*row.pBox);
        EXPECT_EQ(clicked(box), set + told + "MarkChanged; ");
    }
    record->AddNolOverride(MakeOverride(key), key);
    record->RunMode = "I";
    for (const KindCase& other : kindCases) {
        XNolSchedGenTab again;
        NolSchedOverrideTab page(other.kind);
        Load(again);
        Load(page);
        const bool isOwn = &other.kind == &row.kind;
        EXPECT_EQ((again.*other.pBox).Enabled(), isOwn);
        EXPECT_EQ(page.Field<CheckBox>("chkOverride").Enabled(), isOwn);
    }
}

INSTANTIATE_TEST_SUITE_P(All, StudyKinds, testing::ValuesIn(kindCases), [](const auto& named) {
    return std::string(named.param.kind.study.sKey.substr(0, named.param.kind.study.sKey.find(' ')));
});

}  // namespace
}  // namespace NolSchedCtls::Testing
