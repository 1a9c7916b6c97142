// One field of each kind beside its widget: what code writes shows, and what a user does arrives once.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimeEdit>
#include <QVBoxLayout>

#include "host/window/bindings.h"
#include "records/services/provider.h"
#include "tests/window/windows.h"
#include "toolkit/check_box.h"
#include "toolkit/drop_down_list.h"
#include "toolkit/dt_picker.h"
#include "toolkit/ss_date_combo.h"
#include "toolkit/text_box.h"
#include "toolkit/x_ambit.h"
#include "toolkit/x_marlet.h"

namespace NolSchedCtls::Testing {

namespace {

struct Board : UserControl {
    Frame frame{*this, "frame", "Frame  "};
    CheckBox box{frame, "box", " &Box"};
    DropDownList list{frame, "list"};
    TextBox text{frame, "text", 4};
    Label label{frame, "label", "on the "};
    SSDateCombo date{frame, "date"};
    DTPicker time{frame, "time"};
    XMarlet picker{frame, "picker"};
    XAmbitPurge purge{frame, "purge"};
    XAmbitDownload download{frame, "download"};
};

class Bindings : public Windows {
  protected:
    Bindings() {
        for (const char* entry : {"one", "two", "three"}) board.list.AddItem(entry);
        board.picker.RestoreState(CaddisPickerStates().PickerStates().StatesForType({"Scenario"}));
        auto* const column = new QVBoxLayout(&window);
        for (ViewField* field : board.Fields()) {
            const bool isFrame = field == &board.frame;
            widgets[field] = BindField(*field, isFrame ? &window : widgets[&board.frame]);
            if (isFrame) new QVBoxLayout(widgets[field]);
            (isFrame ? column : widgets[&board.frame]->layout())->addWidget(widgets[field]);
        }
        Count(board.box.Clicked), Count(board.list.Clicked), Count(board.text.Changed),
            Count(board.date.Changed);
        Count(board.time.Changed), Count(board.picker.DocumentChange), Count(board.purge.Changed);
        Count(board.download.Changed);
        board.text.KeyPress.Connect([](char32_t& key) { key = key == U'x' ? 0 : key; });
        board.Beep.Connect([this](const ViewField&) { ++beeps; });
        Activate(window);
    }

    void Count(Event<>& event) {
        event.Connect([this] { ++events; });
    }
    template <class Widget>
    Widget* Of(const ViewField& field) {
        return dynamic_cast<Widget*>(widgets[&field]);
    }
    template <class Part>
    Part* PartOf(const ViewField& field) {
        return widgets[&field]->findChild<Part*>();
    }
    // What the widgets show, in one line.
    QString Shown() {
        QStringList shown = {QString::number(Of<QCheckBox>(board.box)->isChecked()),
                             Of<QComboBox>(board.list)->currentText(),
                             Of<QLineEdit>(board.text)->text(),
                             Of<QLabel>(board.label)->text(),
                             Of<QComboBox>(board.date)->currentText(),
                             Of<QTimeEdit>(board.time)->text(),
                             Of<QComboBox>(board.picker)->currentText(),
                             QString::number(PartOf<QCheckBox>(board.purge)->isChecked()),
                             PartOf<QLineEdit>(board.purge)->text()};
        for (const auto* mode : widgets[&board.download]->findChildren<QRadioButton*>())
            shown.append(mode->isChecked() ? u"(o)"_s : u"( )"_s);
        return shown.join(u'|');
    }

    Board board;
    QWidget window;  // ends before the fields
    std::map<const ViewField*, QWidget*> widgets;
    int events = 0;
    int beeps = 0;
};

TEST_F(Bindings, ShowWhatCodeWritesWithoutRaisingItAgain) {
    EXPECT_EQ(Shown(), u"0|||on the|3/2/2026|12:00 AM||0|1|( )|( )"_s);
    board.box.SetValue(1);
    board.list.SetText("two");
    board.text.SetText("longer than four");
    board.label.SetCaption(" week(s)");
    board.date.SetText("12/31/2036");
    board.time.SetHour(21);
    board.picker.SetDocument(board.picker.Entries().front());
    board.purge.LoadPurgeOptions("Y", 30, {});
    board.download.SetDownloadMode("M");
    EXPECT_EQ(Shown(), u"1|two|longer than four|week(s)|12/31/2036|9:00 PM|Baseline|1|30|( )|(o)"_s);
    EXPECT_EQ(events, 8);
    EXPECT_FALSE(board.time.HasFocus()) << "what code writes is no user's act";
    board.list.Clear();
    board.list.AddItem("four");
    board.list.SetListIndex(0);
    board.download.SetDownloadMode("Z");
    EXPECT_EQ(Shown(), u"1|four|longer than four|week(s)|12/31/2036|9:00 PM|Baseline|1|30|( )|( )"_s);
}

TEST_F(Bindings, ShowAndHideAndDisableAtOnce) {
    for (const auto& [field, widget] : widgets) {
        if (field == &board.frame) continue;
        const_cast<ViewField*>(field)->SetEnabled(false);
        EXPECT_FALSE(widget->isEnabled()) << field->Name();
        const_cast<ViewField*>(field)->SetVisible(false);
        EXPECT_TRUE(widget->isHidden()) << field->Name();
    }
    board.frame.SetVisible(false);
    EXPECT_TRUE(widgets[&board.frame]->isHidden());
    EXPECT_EQ(Of<QGroupBox>(board.frame)->title(), u"Frame"_s);
    EXPECT_EQ(Of<QCheckBox>(board.box)->text(), u"&Box"_s);
}

TEST_F(Bindings, TakeEachUserActOnce) {
    const struct {
        const char* name;
        std::function<void()> act;
        const char* shown;
        int events;
    } acts[] = {
        {"box",
         [&] {
             QTest::mouseClick(Of<QCheckBox>(board.box), Qt::LeftButton, {}, {8, 8});
         },
         "1|||on the|3/2/2026|12:00 AM||0|1|( )|( )", 1},
        {"list", [&] { QTest::keyClicks(Of<QComboBox>(board.list), u"three"_s); },
         "1|three||on the|3/2/2026|12:00 AM||0|1|( )|( )", 2},  // "t" finds two, "th" finds three
        {"keys and filter", [&] { QTest::keyClicks(Of<QLineEdit>(board.text), u"1x2345"_s); },
         "1|three|1234|on the|3/2/2026|12:00 AM||0|1|( )|( )", 4},
        {"a key in the middle",
         [&] {
             QTest::keyClick(Of<QLineEdit>(board.text), Qt::Key_Home);
             QTest::keyClick(Of<QLineEdit>(board.text), Qt::Key_Delete);
         },
         "1|three|234|on the|3/2/2026|12:00 AM||0|1|( )|( )", 1},
        {"paste past the filter",
         [&] {
             QGuiApplication::clipboard()->setText(u"xxyyzz"_s);
             Of<QLineEdit>(board.text)->selectAll();
             QTest::keySequence(Of<QLineEdit>(board.text), QKeySequence::Paste);
         },
         "1|three|xxyy|on the|3/2/2026|12:00 AM||0|1|( )|( )", 1},
        {"time", [&] { QTest::keyClick(Of<QTimeEdit>(board.time), Qt::Key_Up); },
         "1|three|xxyy|on the|3/2/2026|1:00 AM||0|1|( )|( )", 1},
        {"picker", [&] { QTest::keyClicks(Of<QComboBox>(board.picker), u"Bus"_s); },
         "1|three|xxyy|on the|3/2/2026|1:00 AM|Bus|0|1|( )|( )", 3},
        {"purge",
         [&] {
             QTest::mouseClick(PartOf<QCheckBox>(board.purge), Qt::LeftButton, {}, {8, 8});
         },
         "1|three|xxyy|on the|3/2/2026|1:00 AM|Bus|1|1|( )|( )", 1},
        {"days", [&] { QTest::keyClicks(PartOf<QLineEdit>(board.purge), u"2a3"_s); },
         "1|three|xxyy|on the|3/2/2026|1:00 AM|Bus|1|123|( )|( )", 2},
        {"days beyond the limit", [&] { QTest::keyClicks(PartOf<QLineEdit>(board.purge), u"4567"_s); },
         "1|three|xxyy|on the|3/2/2026|1:00 AM|Bus|1|12345|( )|( )", 2},
        {"download",
         [&] {
             QTest::mouseClick(PartOf<QRadioButton>(board.download), Qt::LeftButton, {}, {8, 8});
         },
         "1|three|xxyy|on the|3/2/2026|1:00 AM|Bus|1|12345|(o)|( )", 1},
    };
    for (const auto& [name, act, shown, count] : acts) {
        events = 0;
        act();
        EXPECT_EQ(Shown(), QString::fromUtf8(shown)) << name;
        EXPECT_EQ(events, count) << name;
    }
    EXPECT_EQ(board.picker.CheckMessage(), "There is no Scenario named \"Bus\".");
    EXPECT_EQ(beeps, 1);
}

TEST_F(Bindings, EndWithTheWidget) {
    delete widgets[&board.frame];
    for (ViewField* field : board.Fields()) field->SetVisible(false);
    board.list.SetListIndex(1);
    EXPECT_EQ(events, 1);
}

}  // namespace

}  // namespace NolSchedCtls::Testing
