#include <gtest/gtest.h>

#include "NolSchedCtls/toolkit/date_text.h"
#include "NolSchedCtls/toolkit/fields.h"
#include "NolSchedCtls/toolkit/text_edit.h"
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
    XMarlet picker{frame, "picker", "Scenario"};
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
        FocusLeft.Connect([this](ViewField& field) { world.trace += "left " + field.Name() + "; "; });
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

// What a screen is told, as "box Value; frame State; ".
struct Told : UserControl {
    Frame outer{*this, "outer", ""};
    Frame frame{outer, "frame", "A && &B"};
    Label label{frame, "label", "&Days:  "};
    DropDownList list{frame, "list"};
    TextBox text{frame, "text"};
    SSDateCombo date{*this, "date"};
    CheckBox box{*this, "box", " &Box"};
    std::string trace;

    Told() {
        FieldChanged.Connect([this](const ViewField& field, FieldPart part) {
            constexpr std::array parts = {"Value", "Entries", "Caption", "State", "Geometry"};
            trace += field.Name() + " " + parts.at(static_cast<std::size_t>(part)) + "; ";
        });
        box.Clicked.Connect([this] { trace += "raised; "; });
    }
};

TEST(Mirroring, IsToldWhatToShowAnew) {
    InstalledWorld world;
    Told told;
    const std::pair<std::function<void()>, const char*> acts[] = {
        {[&] { told.box.Click(); }, "box Value; raised; "},
        {[&] { told.box.SetValue(1), told.frame.SetVisible(true), told.list.SetLeft(0); }, ""},
        {[&] { told.frame.SetEnabled(false); }, "frame State; label State; list State; text State; "},
        {[&] { told.outer.SetVisible(false); },
         "outer State; frame State; label State; list State; text State; "},
        {[&] { told.list.AddItem("1"); }, "list Entries; "},
        {[&] {
             told.list.AddItems(std::array<std::string, 2>{"2", "3"});
         },
         "list Entries; "},
        {[&] { told.list.SetListIndex(2); }, "list Value; "},
        {[&] { told.list.Clear(); }, "list Entries; "},
        {[&] { told.label.SetCaption("Hours"); }, "label Caption; "},
        {[&] { told.text.SetLocked(true), told.text.SetWidth(7); }, "text State; text Geometry; "},
        {[&] { told.date.TypeText("soon"); }, "date Value; "},
        {[&] { told.date.SetMaxDate(50000); }, "date State; "},
        {[&] { told.date.DropRefusedText(); }, "date Value; "}};
    for (const auto& [act, trace] : acts) {
        act();
        EXPECT_EQ(std::exchange(told.trace, {}), trace);
    }
}

TEST(Mirroring, IsToldStopsLabelsAndMnemonics) {
    InstalledWorld world;
    Told told;
    const auto stops = [&] {
        std::string names;
        for (const ViewField* field : told.TabStops()) names += field->Name() + " ";
        return names;
    };
    EXPECT_EQ(stops(), "list text date box ");
    told.frame.SetEnabled(false);
    EXPECT_EQ(stops(), "date box ");
    std::string texts;
    for (const ViewField* field : told.Fields()) {
        const Label* const label = told.LabelOf(*field);
        const char mnemonic = field->Mnemonic() == 0 ? '-' : field->Mnemonic();
        texts += field->PlainCaption() + mnemonic + (label == nullptr ? "|" : label->Name() + "|");
    }
    EXPECT_EQ(texts, "-|A & Bb|Days:d|-label|-|-|Boxb|");
    std::string left;
    told.FocusLeft.Connect([&](const ViewField& field) { left += field.Name() + "; "; });
    told.LeaveFocus();
    told.box.SetFocus();
    told.LeaveFocus();
    told.LeaveFocus();
    EXPECT_EQ(told.FocusedField(), &told.box) << "when the user comes back";
    told.box.Click();
    told.LeaveFocus();
    told.date.SetFocus();
    told.box.SetFocus();
    EXPECT_EQ(left, "box; box; date; ");
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
    panel.text.KeyTyped.Connect([](char32_t& key) { key = key == U'a' ? U'A' : key == U'b' ? 0 : key; });
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
        "Tuesday, March 02, 2026|Monday, Marsh 02, 2026|, March 02, 2026|Monday, March 02|"
        "Monday, 02, 2026");
    for (std::string text; std::getline(others, text, '|');)
        EXPECT_EQ(ReadDateText(text, *settings), std::nullopt) << text;
}

// What a field shows after a user has typed the text, or why it refuses it.
std::string AfterTyping(TypedField& field, const std::string& text) {
    if (field.TypeText(text)) return field.Refusal() + field.Text();
    EXPECT_EQ(field.Text(), text);
    return field.Refusal();
}

// Each of the texts, which stand between bars, comes to the same.
void ExpectTyped(TypedField& field, const std::string& texts, const std::string& shown) {
    std::istringstream list(texts);
    for (std::string text; std::getline(list, text, '|');)
        EXPECT_EQ(AfterTyping(field, text), shown.front() == ' ' ? Quoted(text) + shown : shown) << text;
}

TEST(TypedTexts, AreTimesAsPeopleWriteThem) {
    UserControl control;
    DTPicker time(control, "time");
    const std::pair<const char*, const char*> cases[] = {
        {"22:30|2230|22.30|22h30|10:30 pm|10:30p|10:30 PM| 10:30:00 P.M. ", "10:30 PM"},
        {"9:05|905|0905|9:05:00 AM|9.05a", "9:05 AM"},
        {"7|7a|7 AM|07:00|  7 am", "7:00 AM"},
        {"7 pm|7p|19|1900|19H00", "7:00 PM"},
        {"noon| Noon|12|12pm", "12:00 PM"},
        {"midnight|0|00:00|12am|000", "12:00 AM"},
        {"|25:00|24|24:00|9:60|9:5|9:|:30|960|22301|13pm|0am|7x|7pmx|7:00:30|-7|1899-12-30T9:05|noonish|pm",
         " is no time of day; it is typed to the minute, as 22:30, 2230, 10:30 PM, 7 or noon."}};
    for (const auto& [texts, shown] : cases) ExpectTyped(time, texts, shown);
    time.SetHour(0);
    EXPECT_EQ(time.Text() + time.Refusal(), "12:00 AM") << "what code writes takes a refused text's place";
}

TEST(TypedTexts, AreDatesAsPeopleWriteThem) {
    const InstalledWorld world;
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"",
         "12/24/2026|12-24-2026|12.24.2026|2026-12-24|Dec 24 2026|dec 24, 2026|24 December 2026|24 Dec|"
         "Dec 24|Thu, Dec 24, 2026| 24 Decem 2026 |12/24/2026 0:00",
         "12/24/2026"},
        {"",
         "|24.12.2026|2026-13-24|2026-12-24T00:00|12/24-2026|12/24/26|Dezember 24|24 De 2026|31 Nov|"
         "Fri, Dec 24, 2026|24 Dec 26|Dec 24 9:05|2026-12-24 9:05|tomorrow",
         " is no date; it is typed as 12/24/2026, 2026-12-24 or 24 Dec 2026."},
        {"", "1/1/2031|1989-12-31|24 Dec 2036", " cannot be chosen; a date is from 1/1/1990 to 12/31/2030."},
        {"DD.MM.YYYY", "07.12.2028|2028-12-07|7 Dec 2028", "07.12.2028"},
        {"DD MMMM YYYY", "24 December 2028|24 Dec|12/24/2028|24 Dec 2028", "24 December 2028"},
        {"", "12/24/2029", "12/24/2029"}};
    UserControl control;
    SSDateCombo date(control, "date");
    date.SetMaxDate(ParseIso("2030-12-31"));
    for (const auto& [format, texts, shown] : cases) {
        date.SetDisplayFormat(format);
        const DateTime former = date.DateValue();
        ExpectTyped(date, texts, shown);
        EXPECT_TRUE(*shown != ' ' || date.DateValue() == former) << texts;
        EXPECT_TRUE(*format != 'D' || SplitDateTime(date.DateValue()).year == 2028) << "shown or not";
    }
    const std::pair<const char*, const char*> lacking[] = {
        {"DD MMMM", "year"}, {"MM/YYYY", "day"}, {"DDDD, DD YYYY", "month"}};
    for (const auto& row : lacking)
        EXPECT_EQ(FailureOf([&] { date.SetDisplayFormat(row.first); }),
                  "The date format " + Quoted(row.first) + " lacks the " + row.second + ".");
    date.TypeText("soon");
    EXPECT_EQ(control.RefusedField(), &date);
    date.SetVisible(false);
    EXPECT_FALSE(date.TypeText("later") || control.RefusedField() != nullptr || date.Text() != "soon");
    date.SetVisible(true);
    EXPECT_TRUE(date.PickDate(date.DateValue()));
    EXPECT_EQ(date.Text() + date.Refusal(), "12/24/2029") << "a pick takes a refused text's place";
}

TEST(TypedTexts, StandInTheOrderOfTheRegion) {
    const std::tuple<DateFieldOrder, const char*, std::optional<DateTime>> cases[] = {
        {DateFieldOrder::DayFirst, "2/3/2026|2.3.2026|02-03-2026|2026-03-02|Mar 2, 2026", 46083},
        {DateFieldOrder::DayFirst, "12/24/2026|2026/3/2|2 Mar", {}},
        {DateFieldOrder::YearFirst, "2026/3/2|2026.03.02|2026-3-2|2 mar 2026", 46083},
        {DateFieldOrder::YearFirst, "3/2/2026|2.3.2026|Mar 2", {}}};
    for (const auto& [order, texts, date] : cases) {
        std::istringstream list(texts);
        for (std::string text; std::getline(list, text, '|');)
            EXPECT_EQ(ReadDateText(text, *MakeDateSettings(order)), date) << text;
    }
}

}  // namespace
}  // namespace NolSchedCtls::Testing
