// The same acts on the view fields of one entry and on the widgets of another lead to the same fields and
// the same widgets.
#include <random>

#include "NolSchedCtls/toolkit/fields.h"
#include "host/cli/field_view.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

using Random = std::mt19937;

const auto& OneOf(Random& random, const auto& list) { return list[random() % std::size(list)]; }

void Retype(QLineEdit& edit, const std::string& text) {
    edit.setFocus();
    edit.selectAll();
    QGuiApplication::clipboard()->setText(ToQt(text));
    QTest::keySequence(&edit, text.empty() ? QKeySequence::Delete : QKeySequence::Paste);
}

// Each does an act on the field, and the same on the widget of its twin.
void TypeKey(auto& field, QWidget& edit, Random& random) {
    const char key = OneOf(random, std::string_view("0123456789a-\b"));
    field.Key(static_cast<char32_t>(key));
    QTest::keyClick(&edit, Qt::Key_End);
    QTest::keyClick(&edit, key);
}

void Act(CheckBox& field, QWidget& widget, Random& /*random*/) {
    field.Click();
    QTest::keyClick(&widget, Qt::Key_Space);
}

void Act(DropDownList& field, QWidget& widget, Random& random) {
    QTest::keyClick(&widget, OneOf(random, std::array{Qt::Key_Home, Qt::Key_End, Qt::Key_Up, Qt::Key_Down}));
    field.PickIndex(dynamic_cast<QComboBox&>(widget).currentIndex());
}

void Act(TextBox& field, QWidget& widget, Random& random) {
    const char* const text = OneOf(random, std::array{"", "5", "9", "10", "60", "1439", "3000", "12a"});
    field.Paste(text);
    auto* const line = widget.findChild<QLineEdit*>();
    Retype(line != nullptr ? *line : dynamic_cast<QLineEdit&>(widget), text);
    TypeKey(field, widget, random);
}

void Act(SSDateCombo& field, QWidget& widget, Random& random) {
    const char* const text = OneOf(random, std::array{"", "2/30/2026", "12/31/2024", "7/4/2026", "1/1/2030",
                                                      "12/31/2035", "1/1/2036", "13/1/2027"});
    field.BeginEdit();
    field.TypeText(text);
    QTest::keyClick(&widget, Qt::Key_F2);
    Retype(*widget.findChild<QLineEdit*>(), text);
    QTest::keyClick(&widget, Qt::Key_F4);  // takes what was typed, and opens the calendar
    QApplication::activePopupWidget()->close();
}

void Act(XMarlet& field, QWidget& widget, Random& random) {
    const char* const text = OneOf(random, std::array{"", "Nobody's", "North Cells", "Baseline"});
    field.Paste(text);
    Retype(*widget.findChild<QLineEdit*>(), text);
}

void Act(XAmbitPurge& field, QWidget& widget, Random& random) {
    field.Click();
    QTest::keyClick(widget.findChild<QCheckBox*>(), Qt::Key_Space);
    TypeKey(field, *widget.findChild<QAbstractSpinBox*>(), random);
}

// Typed elsewhere, or not at all.
void Act(auto& /*field*/, QWidget& /*widget*/, Random& /*random*/) {}

// What the fields hold and what their widgets show.
std::string StateOf(EntryEditor& editor) {
    std::string state;
    for (const Page& page : editor.Session().Pages())
        for (const ViewField* field : page.tab->Fields()) {
            const QWidget& widget = *editor.PageOf(page).WidgetOf(*field);
            state += Describe(*field).dump() + " shows " + Shown(widget) + '\n';
            EXPECT_NE(widget.isHidden(), field->Visible()) << field->Name();
            EXPECT_EQ(widget.isEnabled(), field->Enabled()) << field->Name();
        }
    return state;
}

class Walks : public Windows, public testing::WithParamInterface<unsigned> {};

TEST_P(Walks, OnFieldsAndOnWidgetsEndAlike) {
    Random random(GetParam());
    EntryEditor& byFields = OpenNew();
    EntryEditor& byWidgets = OpenNew();
    const Page* front = nullptr;
    for (int step = 0; step < 250; ++step) {
        const Page& page = OneOf(random, byFields.Session().Pages());
        ViewField& field = *OneOf(random, page.tab->Fields());
        if (!field.IsUsable()) continue;
        QWidget& widget = Find(byWidgets, std::string(page.name) + "." + field.Name());
        if (front != nullptr && front != &page) front->tab->LeaveFocus();
        front = &page;
        if (!field.IsTabStop()) continue;
        widget.setFocus();
        field.SetFocus();
        VisitField(field, [&](auto& kind) { Act(kind, widget, random); });
        ASSERT_EQ(StateOf(byWidgets), StateOf(byFields)) << field.Name() << " at " << step;
    }
    EXPECT_EQ(byWidgets.Save(), byFields.Save());
}

INSTANTIATE_TEST_SUITE_P(Seeds, Walks, testing::Range(1U, 9U));

}  // namespace NolSchedCtls::Testing
