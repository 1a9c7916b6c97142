#include <gtest/gtest.h>

#include "tests/library/fake_services.h"
#include "toolkit/check_box.h"
#include "toolkit/text_box.h"
#include "toolkit/x_ambit.h"
#include "toolkit/x_marlet.h"

namespace NolSchedCtls::Testing {

namespace {

// An event whose handlers write their names down: "a1 b1 ".
struct Bell {
    std::string trace;
    std::unique_ptr<Event<int>> event = std::make_unique<Event<int>>();

    Connection Hang(const std::string& name, std::function<void(int)> act = {}) {
        return event->Connect([this, name, act](int n) {
            trace += name + std::to_string(n) + " ";
            if (act) act(n);
        });
    }
    std::string Ring(int n) {
        event->Raise(n);
        return std::exchange(trace, {});
    }
};

TEST(Events, SurviveHandlersThatConnectDisconnectAndRaise) {
    Bell bell;
    Connection early, self, late;
    early = bell.Hang("early");
    self = bell.Hang("self", [&](int n) {
        if (n == 1) bell.Hang("new");
        if (n == 2) bell.event->Raise(20);
        if (n == 20) early.Disconnect(), self.Disconnect(), late.Disconnect();
    });
    late = bell.Hang("late");
    bell.Hang("last");
    EXPECT_EQ(bell.Ring(1), "early1 self1 late1 last1 ");
    EXPECT_EQ(bell.Ring(2), "early2 self2 early20 self20 last20 new20 last2 new2 ");
    EXPECT_EQ(bell.Ring(3), "last3 new3 ");
}

TEST(Events, SurviveHandlersThatThrowOrEndTheEvent) {
    Bell bell;
    Connection outlives = bell.Hang("gone", [&](int) {
        outlives.Disconnect();
        throw NolSchedError("handler");
    });
    {
        const ScopedConnection scoped = bell.Hang("scoped");
        EXPECT_EQ(FailureOf([&] { bell.Ring(1); }), "handler");
        EXPECT_EQ(bell.Ring(2), "gone1 scoped2 ");
    }
    outlives = bell.Hang("end", [&bell, text = std::string(40, 'x')](int) {
        bell.event.reset();
        bell.trace += text;
    });
    bell.event->Raise(3);
    outlives.Disconnect();
    EXPECT_EQ(bell.trace, "end3 " + std::string(40, 'x'));
}

struct Panel : UserControl {
    InstalledWorld world;
    Frame outer{*this, "outer", ""};
    Frame frame{outer, "frame", ""};
    CheckBox box{frame, "box", ""};
    TextBox text{frame, "text", 4};
    XMarlet picker{frame, "picker"};
    XAmbitPurge purge{frame, "purge"};
    XAmbitDownload download{frame, "download"};

    Panel() {
        world.documents = {{5, "North", {"Scenario"}}, {6, "South", {"Scenario"}}, {7, "West", {"NOL Group"}}};
        picker.RestoreState(std::make_shared<MarletState>(MarletState{{"Scenario"}, 0}));
        TraceControl(world, *this);
        for (Event<>* event : {&box.Clicked, &text.Changed, &picker.DocumentChange, &purge.Changed})
            event->Connect([this] { world.trace += "raised; "; });
        download.Changed.Connect([this] { world.trace += "mode; "; });
        for (ViewField* field : Fields())
            field->LostFocus.Connect([this, field] { world.trace += "left " + field->Name() + "; "; });
    }
    std::string Acts() {
        const bool done[] = {box.Click(),      text.Key('1'),       text.Paste("2"),       picker.Pick("North"),
                             picker.Paste(""), purge.Click(),       purge.Key('1'),        purge.PasteDays("9"),
                             picker.Pick(""),  purge.Key('x'), download.Pick("Manual")};
        std::string answers;
        for (const bool one : done) answers += one ? '1' : '0';
        return answers + " " + world.TakeTrace();
    }
};

TEST(Fields, HearNoUserWhileHiddenOrDisabled) {
    Panel panel;
    for (void (ViewField::*set)(bool) : {&ViewField::SetVisible, &ViewField::SetEnabled}) {
        for (ViewField* field : {static_cast<ViewField*>(&panel.outer), static_cast<ViewField*>(&panel.frame)}) {
            (field->*set)(false);
            EXPECT_EQ(panel.Acts(), "00000000000 ");
            (field->*set)(true);
        }
        for (ViewField* field : panel.Fields())
            if (field->Container() == &panel.frame) (field->*set)(false);
        EXPECT_EQ(panel.Acts(), "00000000000 ");
        for (ViewField* field : panel.Fields()) (field->*set)(true);
    }
    EXPECT_EQ(panel.FocusedField(), nullptr);
    EXPECT_EQ(panel.Acts().substr(0, 12), "11111111111 ");
}

TEST(Fields, MoveTheFocusOnceAndRefuseItWhereNoUserReaches) {
    Panel panel;
    panel.box.Click();
    panel.text.Key('1');
    panel.text.Key('1');
    panel.box.SetFocus();
    panel.box.SetFocus();
    EXPECT_EQ(panel.world.TakeTrace(),
              "focus box; raised; left box; focus text; raised; raised; left text; focus box; ");
    panel.frame.SetVisible(false);
    EXPECT_EQ(panel.FocusedField(), nullptr);
    EXPECT_EQ(FailureOf([&] { panel.text.SetFocus(); }), "The field text cannot take the focus: it is hidden.");
    panel.frame.SetVisible(true);
    panel.text.SetEnabled(false);
    EXPECT_EQ(FailureOf([&] { panel.text.SetFocus(); }), "The field text cannot take the focus: it is disabled.");
    EXPECT_EQ(panel.FocusedField(), &panel.box);
    EXPECT_NE(FailureOf([&] { panel.Field<TextBox>("box"); }).find("\"box\""), std::string::npos);
}

TEST(Fields, RaiseOnlyWhenCodeChangesThem) {
    Panel panel;
    for (const int value : {0, 1, 1, 2, 0}) panel.box.SetValue(value);
    EXPECT_EQ(panel.world.TakeTrace(), "raised; raised; raised; ");
    for (const char* text : {"", "longer than a user's", "longer than a user's", ""}) panel.text.SetText(text);
    EXPECT_EQ(panel.world.TakeTrace(), "raised; raised; ");
    for (const char* mode : {"A", "Z", "Z"}) panel.download.SetDownloadMode(mode);
    EXPECT_EQ(panel.world.TakeTrace(), "mode; mode; ");
    EXPECT_EQ(panel.download.DownloadMode() + std::string(panel.download.Text()), "Z");
    EXPECT_FALSE(panel.download.Pick("Z"));
    EXPECT_TRUE(panel.download.Pick("Manual"));
    EXPECT_EQ(panel.download.DownloadMode(), "M");
}

TEST(TextBoxes, CountCharactersAndKeepWhatIsNoUtf8) {
    const struct {
        std::string text;
        char32_t key;
        std::string after;  // at most four characters
    } keys[] = {
        {"123", U'4', "1234"},
        {"1234", U'5', "1234"},
        {"\u00e9\u20ac\U0001F600", U'\u00e9', "\u00e9\u20ac\U0001F600\u00e9"},
        {"\u00e9\u20ac\U0001F600x", U'y', "\u00e9\u20ac\U0001F600x"},
        {"a\u00e9", keyBackspace, "a"},
        {"a\u20ac", keyBackspace, "a"},
        {"a\U0001F600", keyBackspace, "a"},
        {"", keyBackspace, ""},
        {"a\xC3", keyBackspace, "a"},
        {"\xE2\x82", keyBackspace, "\xE2"},
        {"\xFF\xFE\xC3", U'\U0001F600', "\xFF\xFE\xC3\U0001F600"},
        {"\xFF\xFE\xC3\xF0", U'1', "\xFF\xFE\xC3\xF0"},
    };
    for (const auto& c : keys) EXPECT_EQ(TextAfterKey(c.text, c.key, 4), c.after) << c.text;
    const std::string megabyte(1 << 20, '7');
    EXPECT_EQ(CutToLength(megabyte, 0), megabyte);
    EXPECT_EQ(TextAfterKey(megabyte, keyBackspace, 4), megabyte.substr(1));
    Panel panel;
    panel.text.Paste(megabyte);
    EXPECT_EQ(panel.text.Text(), "7777");
    panel.text.KeyPress.Connect([](char32_t& key) { key = key == U'a' ? U'A' : key == keyBackspace ? key : 0; });
    for (const char32_t key : {keyBackspace, U'b', U'a'}) panel.text.Key(key);
    EXPECT_EQ(panel.text.Text(), "777A");
}

TEST(Pickers, TellWhyThereIsNoValidDocument) {
    Panel panel;
    XMarlet& picker = panel.picker;
    const struct {
        std::function<void()> act;
        const char* shown;
        const char* valid;
        const char* trace;
    } steps[] = {
        {[&] { picker.SetDocument(nullptr); }, "", "A Scenario is required.", ""},
        {[&] { picker.Paste("North"); }, "North", "", "focus picker; raised; "},
        {[&] { picker.Pick("Nowhere"); }, "North", "", ""},
        {[&] { picker.Paste("West"); }, "West", "There is no Scenario named \"West\".", "raised; "},
        {[&] { picker.SetPendingFlag(true); }, "West", "There is no Scenario named \"West\".", ""},
        {[&] { picker.SetPendingFlag(false); }, "", "A Scenario is required.", ""},
        {[&] { picker.Pick("South"); }, "South", "", "raised; "},
        {[&] { picker.Pick("South"); }, "South", "", ""},
        {[&] { panel.world.documents.clear(); }, "South", "The Scenario \"South\" has been deleted.", ""},
        {[&] { picker.Pick(""); }, "", "A Scenario is required.", "raised; "},
    };
    for (const auto& step : steps) {
        step.act();
        EXPECT_EQ(picker.Text(), step.shown);
        EXPECT_EQ(picker.ValidDocument() ? "" : picker.CheckMessage(), step.valid);
        EXPECT_EQ(panel.world.TakeTrace(), step.trace);
    }
}

TEST(PurgeOptions, StayInTheUsersRange) {
    const char* const outside = "T[16]: The purge interval must be between 1 and 90 days inclusive.; ";
    const char* const required = "T[16]: Automatic purge is required for your user id.; ";
    const struct {
        const char *isRequired, *autoPurge;
        std::int32_t days;
        bool inRange;
        std::int32_t held;
        const char *pasted, *trace;
    } cases[] = {
        {"N", "N", 1, true, 1, "90", ""},       {"N", "Y", 90, true, 90, "91", outside},
        {"Y", "Y", 0, false, 90, "0", outside}, {"Y", "N", 91, false, 90, "1", required},
        {"N", "Y", -5, false, 90, "", outside}, {"", "Q", 30, true, 30, "1.5", outside},
    };
    for (const auto& c : cases) {
        Panel panel;
        const CaddisUser user{{{"Max Purge Interval", "90"}, {"AutoPurge Required", c.isRequired}}};
        EXPECT_EQ(panel.purge.LoadPurgeOptions(c.autoPurge, c.days, user), c.inRange) << c.days;
        EXPECT_EQ(panel.purge.PurgeDays(), c.held);
        EXPECT_EQ(panel.purge.AutoPurge(), c.autoPurge);
        panel.purge.PasteDays(c.pasted);
        panel.world.TakeTrace();
        EXPECT_EQ(panel.purge.IsPurgeValid("T"), *c.trace == '\0');
        EXPECT_EQ(panel.world.trace, c.trace);
    }
    Panel panel;
    for (const char* setting : {"", "0", "-1", "many", "90 ", "2147483648"})
        EXPECT_NE(FailureOf([&] { panel.purge.LoadPurgeOptions("Y", 1, {{{"Max Purge Interval", setting}}}); })
                      .find("\"" + std::string(setting) + "\", which is no number of days"),
                  std::string::npos);
    panel.purge.PasteDays("1234567");
    for (const char32_t key : {U'8', U'x', keyBackspace, U'9'}) panel.purge.Key(key);
    EXPECT_EQ(panel.purge.DaysText() + " " + panel.world.trace,
              "12349 focus purge; raised; beep purge; raised; raised; ");
}

}  // namespace

}  // namespace NolSchedCtls::Testing
