#include <gtest/gtest.h>

#include "NolSchedCtls/toolkit/date_text.h"
#include "NolSchedCtls/toolkit/fields.h"
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

TEST(Events, SurviveWhatTheirHandlersDo) {
    Bell bell;
    Connection early = bell.Hang("early"), self, late, thrower;
    self = bell.Hang("self", [&](int n) {
        if (n == 1) early.Disconnect(), bell.Hang("new");
        if (n == 2) bell.event->Raise(20);
        if (n == 20) self.Disconnect(), late.Disconnect();
    });
    late = bell.Hang("late");
    bell.Hang("last");
    EXPECT_EQ(bell.Ring(1), "early1 self1 late1 last1 ");
    EXPECT_EQ(bell.Ring(2), "self2 self20 last20 new20 last2 new2 ");
    EXPECT_EQ(bell.Ring(3), "last3 new3 ");
    thrower = bell.Hang("throw", [&](int) {
        thrower.Disconnect();
        throw NolSchedError("handler");
    });
    EXPECT_EQ(FailureOf([&] { bell.Ring(4); }), "handler");
    Connection outlives = bell.Hang("end", [&bell, owned = std::string(40, 'x')](int) {
        bell.event.reset();
        bell.trace += owned;
    });
    EXPECT_EQ(bell.Ring(5), "last4 new4 throw4 last5 new5 end5 " + std::string(40, 'x'));
    outlives.Disconnect();
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
        picker.RestoreState(std::make_shared<MarletState>(MarletState{{"Scenario"}, 6}));
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
    EXPECT_EQ(panel.picker.LastDocumentId(), 6);
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

TEST(DateTexts, EveryDayOfALeapYearIsReadAsItWasWritten) {
    for (const auto order : {DateFieldOrder::MonthFirst, DateFieldOrder::DayFirst, DateFieldOrder::YearFirst})
        for (int day = 0; day < 366; ++day) {
            const auto settings = MakeDateSettings(order);
            const DateTime date = ParseIso("2028-01-01") + day;
            for (const std::string& text : {ShortDateText(date, *settings), DateText(date, longDateFormat),
                                            DateText(date, settings->EditDateFormat())}) {
                EXPECT_EQ(ReadDateText(text, *settings), date) << text;
                EXPECT_EQ(ReadDateText(text + " 21:5", *settings), date + 1265 / 1440.0) << text;
                EXPECT_EQ(ReadDateText(text + " 9:05:00 PM", *settings), date + 1265 / 1440.0) << text;
            }
        }
}

TEST(DateFields, ShowTheirDefaultByTheFormatUntilADateIsSet) {
    InstalledWorld world;
    UserControl control;
    SSDateCombo date(control, "date");
    const auto told = [&](const std::function<void()>& act) {
        const std::string failure = FailureOf(act);
        return failure == "no failure" ? date.Text() : failure;
    };
    const std::pair<std::function<void()>, const char*> acts[] = {
        {[&] { EXPECT_EQ(date.DateValue(), 46083); }, "3/2/2026"},
        {[&] { world.now = 46084.99; }, "3/3/2026"},
        {[&] { date.SetDefaultDate("4/5/2026"); }, "4/5/2026"},
        {[&] { date.SetDefaultDate("soon"); }, "The default date \"soon\" of the field date is no date."},
        {[&] { date.SetDisplayFormat("DD.M.YYYY"); }, "05.4.2026"},
        {[&] { date.SetDisplayFormat("MMM D"); },
         "A date format has no part \"MMM\"; it has DDDD, MMMM, MM, M, DD, D and YYYY."},
        {[&] { date.PickDate(46083.9); }, "02.3.2026"}};
    for (const auto& [act, text] : acts) EXPECT_EQ(told(act), text);
    EXPECT_EQ(date.DateValue(), 46083);
}

TEST(DateTexts, AreExactAndOthersAreRefused) {
    const auto settings = MakeDateSettings(DateFieldOrder::MonthFirst);
    const auto dayFirst = MakeDateSettings(DateFieldOrder::DayFirst);
    const DateTime date = ParseIso("2026-03-02");
    EXPECT_EQ(ShortDateText(date, *dayFirst) + DateText(date, dayFirst->EditDateFormat()),
              "2/3/202602/03/2026");
    EXPECT_EQ(DateText(date, longDateFormat), "Monday, March 02, 2026");
    EXPECT_EQ(ReadDateText(" monday, MARCH 2, 2026  ", *settings), date);
    EXPECT_EQ(ReadDateText("3/2/2026 12:07:09 AM", *settings), ParseIso("2026-03-02T00:07:09"));
    EXPECT_THROW(DateText(date, "MMM D"), NolSchedError);
    std::istringstream others(
        "|9:05|2/30/2026|2/29/2027|13/1/2026|0/1/2026|3/2/26|3/2/20261|3/2/0099|3/2/2026 24:00|3/2/2026 9:60|"
        "3/2/2026 9:05:60|3/2/2026 13:00 PM|3/2/2026 0:05 AM|3/2/2026 9:05 XM|3/2/2026 9:05 AM x|"
        "Tuesday, March 02, 2026|Monday, Marsh 02, 2026|, March 02, 2026|March 02, 2026|Monday, March 02|"
        "Monday, 02, 2026");
    for (std::string text; std::getline(others, text, '|');)
        EXPECT_EQ(ReadDateText(text, *settings), std::nullopt) << text;
}

}  // namespace
}  // namespace NolSchedCtls::Testing
