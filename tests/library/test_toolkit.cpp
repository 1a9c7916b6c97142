#include <gtest/gtest.h>

#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/text_box.h"
#include "NolSchedCtls/toolkit/x_ambit.h"
#include "NolSchedCtls/toolkit/x_marlet.h"
#include "tests/library/fake_services.h"

namespace NolSchedCtls::Testing {
namespace {

// An event whose handlers write their names down: "early1 late1 ".
struct Bell {
    std::string trace;
    std::unique_ptr<Event<int>> event = std::make_unique<Event<int>>();

    Connection Hang(const std::string& name, std::function<void(int)> act = {}) {
        return event->Connect([=, this](int n) {
            trace += name + std::to_string(n) + " ";
            if (act) act(n);
        });
    }
    std::string Ring(int n) { return event->Raise(n), std::exchange(trace, {}); }
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
    Connection thrower = bell.Hang("throw", [&](int) {
        thrower.Disconnect();
        throw NolSchedError("handler");
    });
    {
        const ScopedConnection scoped = bell.Hang("scoped");
        EXPECT_EQ(FailureOf([&] { bell.Ring(1); }), "handler");
        EXPECT_EQ(bell.Ring(2), "throw1 scoped2 ");
    }
    Connection outlives = bell.Hang("end", [&bell, owned = std::string(40, 'x')](int) {
        bell.event.reset();
        bell.trace += owned;
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
        world.documents = {
            {5, "North", {"Scenario"}}, {6, "South", {"Scenario"}}, {7, "West", {"NOL Group"}}};
        picker.RestoreState(std::make_shared<MarletState>(MarletState{{"Scenario"}, 0}));
        TraceControl(world, *this);
        for (auto* event :
             {&box.Clicked, &text.Changed, &picker.DocumentChange, &purge.Changed, &download.Changed})
            event->Connect([this] { world.trace += "raised; "; });
        for (ViewField* field : Fields())
            field->LostFocus.Connect([this, field] { world.trace += "left " + field->Name() + "; "; });
    }
    std::string UserActs() {
        std::string done;
        for (const bool one : {box.Click(), text.Key('1'), text.Paste("2"), picker.Pick("North"),
                               picker.Pick(""), picker.Paste("?"), purge.Click(), purge.Key('1'),
                               purge.PasteDays("9"), download.Pick("Manual")})
            done += one ? '1' : '0';
        return done + world.TakeTrace();
    }
};

TEST(Fields, HearNoUserWhileHiddenOrDisabled) {
    Panel panel;
    const std::vector<ViewField*> inner(panel.Fields().begin() + 2, panel.Fields().end());
    for (const auto set : {&ViewField::SetVisible, &ViewField::SetEnabled})
        for (const auto& fields : {std::vector<ViewField*>{&panel.outer}, {&panel.frame}, inner}) {
            for (ViewField* field : fields) (field->*set)(false);
            EXPECT_EQ(panel.UserActs(), "0000000000");
            for (ViewField* field : fields) (field->*set)(true);
        }
    EXPECT_EQ(panel.UserActs().substr(0, 10), "1111111111");
}

TEST(Fields, MoveTheFocusOnceAndRefuseItWhereNoUserReaches) {
    Panel panel;
    panel.box.Click();
    for (const char32_t key : {U'1', U'2'}) panel.text.Key(key);
    for (int i = 0; i < 2; ++i) panel.box.SetFocus();
    EXPECT_EQ(panel.world.TakeTrace(),
              "focus box; raised; left box; focus text; raised; raised; left text; focus box; focus box; ");
    panel.frame.SetVisible(false);
    EXPECT_EQ(panel.FocusedField(), nullptr);
    EXPECT_EQ(FailureOf([&] { panel.text.SetFocus(); }),
              "The field text cannot take the focus: it is hidden.");
    panel.frame.SetVisible(true);
    panel.text.SetEnabled(false);
    EXPECT_EQ(FailureOf([&] { panel.text.SetFocus(); }),
              "The field text cannot take the focus: it is disabled.");
    EXPECT_EQ(panel.FocusedField(), &panel.box);
}

TEST(Fields, RaiseOnlyWhenCodeChangesThem) {
    Panel panel;
    for (const int value : {0, 1, 1, 2, 0}) panel.box.SetValue(value);
    EXPECT_EQ(panel.world.TakeTrace(), "raised; raised; raised; ");
    for (const char* text : {"", "no user's length", "no user's length"}) panel.text.SetText(text);
    EXPECT_EQ(panel.text.Text() + panel.world.TakeTrace(), "no user's lengthraised; ");
    for (const char* mode : {"A", "Z", "Z"}) panel.download.SetDownloadMode(mode);
    EXPECT_EQ(panel.world.TakeTrace(), "raised; raised; ");
    EXPECT_FALSE(panel.download.Pick("Z"));
    EXPECT_EQ(Barred(panel.download.DownloadMode(), panel.download.Text()), "Z||");
}

TEST(TextBoxes, CountCharactersAndKeepWhatIsNoUtf8) {
    const std::tuple<std::string, char32_t, std::string> keys[] = {
        {"\u00e9\u20ac\U0001F600", U'\u00e9', "\u00e9\u20ac\U0001F600\u00e9"},
        {"\u00e9\u20ac\U0001F600x", U'y', "\u00e9\u20ac\U0001F600x"},
        {"a\u20ac", keyBackspace, "a"},
        {"a\U0001F600", keyBackspace, "a"},
        {"", keyBackspace, ""},
        {"a\xC3", keyBackspace, "a"},
        {"\xE2\x82", keyBackspace, "\xE2"},
        {"\xFF\x80\x80", keyBackspace, "\xFF\x80"},
        {"\xFF\xFE\xC3", U'\U0001F600', "\xFF\xFE\xC3\U0001F600"},
        {"\xFF\xFE\xC3\xF0", U'1', "\xFF\xFE\xC3\xF0"}};
    for (const auto& [text, key, after] : keys) EXPECT_EQ(TextAfterKey(text, key, 4), after) << text;
    const std::string megabyte(1 << 20, '7');
    EXPECT_EQ(CutToLength(megabyte, 0), megabyte);
    EXPECT_EQ(TextAfterKey(megabyte, keyBackspace, 4), megabyte.substr(1));
    Panel panel;
    panel.text.Paste(megabyte);
    EXPECT_EQ(panel.text.Text(), "7777");
    panel.text.KeyPress.Connect([](char32_t& key) { key = key == U'a' ? U'A' : key == U'b' ? 0 : key; });
    for (const char32_t key : {keyBackspace, U'b', U'a', U'c'}) panel.text.Key(key);
    EXPECT_EQ(panel.text.Text(), "777A");
}

TEST(PurgeOptions, RefuseASettingThatIsNoNumberOfDays) {
    Panel panel;
    for (const char* setting : {"", "0", "-1", "many", "90 ", "2147483648"}) {
        const CaddisUser user{{{"Max Purge Interval", setting}}};
        EXPECT_EQ(
            FailureOf([&] { panel.purge.LoadPurgeOptions("Y", 1, user); }),
            "The setting \"Max Purge Interval\" is " + Quoted(setting) + ", which is no number of days.");
    }
    panel.purge.PasteDays("1234567");
    for (const char32_t key : {U'8', U'x', keyBackspace, U'9'}) panel.purge.Key(key);
    EXPECT_EQ(panel.purge.DaysText() + panel.world.trace,
              "12349focus purge; raised; beep purge; raised; raised; ");
}

}  // namespace
}  // namespace NolSchedCtls::Testing
