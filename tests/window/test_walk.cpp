// The same acts on the view fields of one entry and on the widgets of another lead to the same fields, the
// same widgets and the same row.
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimeEdit>
#include <random>

#include "host/cli/acts.h"
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

using Random = std::mt19937;

int Below(Random& random, int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

void Retype(QWidget& widget, QLineEdit& edit, const std::string& text) {
    widget.setFocus();
    edit.selectAll();
    QGuiApplication::clipboard()->setText(ToQt(text));
    QTest::keySequence(&widget, QKeySequence::Paste);
}

// Each does one act on the field, and the same on the widget of its twin.
void Act(CheckBox& field, QWidget& widget, Random& /*random*/) {
    field.Click();
    QTest::keyClick(&widget, Qt::Key_Space);
}

void Act(DropDownList& field, QWidget& widget, Random& random) {
    const int last = static_cast<int>(field.Entries().size()) - 1;
    const int at = field.ListIndex();
    const std::pair<Qt::Key, int> moves[] = {{Qt::Key_Home, 0},
                                             {Qt::Key_End, last},
                                             {Qt::Key_Up, std::max(at - 1, 0)},
                                             {Qt::Key_Down, std::min(at + 1, last)}};
    const auto& [key, index] = moves[Below(random, 4)];
    field.PickIndex(index);
    QTest::keyClick(&widget, key);
}

void Act(TextBox& field, QWidget& widget, Random& random) {
    if (Below(random, 3) == 0) {
        const std::string text = std::to_string(Below(random, 3000)) + (Below(random, 4) == 0 ? "a" : "");
        field.Paste(text);
        return Retype(widget, dynamic_cast<QLineEdit&>(widget), text);
    }
    const char key = "0123456789a-"[Below(random, 12)];
    field.Key(static_cast<char32_t>(key));
    QTest::keyClick(&widget, Qt::Key_End);
    QTest::keyClick(&widget, key);
}

void Act(SSDateCombo& field, QWidget& widget, Random& random) {
    const std::string text = std::to_string(1 + Below(random, 13)) + "/" +
                             std::to_string(1 + Below(random, 30)) + "/" +
                             std::to_string(2024 + Below(random, 14));
    field.BeginEdit();
    field.TypeDate(text);
    QTest::keyClick(&widget, Qt::Key_F2);
    Retype(widget, *widget.findChild<QLineEdit*>(), text);
    QTest::keyClick(&widget, Qt::Key_F4);  // takes what was typed, and opens the calendar
    for (auto* popup : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (popup->windowType() == Qt::Popup) popup->close();
}

void Act(DTPicker& field, QWidget& widget, Random& random) {
    const QTime time(Below(random, 24), Below(random, 60));
    field.PickTime(time.hour(), time.minute());
    dynamic_cast<QTimeEdit&>(widget).setTime(time);
}

void Act(XMarlet& field, QWidget& widget, Random& random) {
    const auto entries = field.Entries();
    const int choice = Below(random, static_cast<int>(entries.size()) + 2);
    const std::string text = choice == 0   ? ""
                             : choice == 1 ? "Nobody's"
                                           : entries[static_cast<std::size_t>(choice - 2)]->Name;
    field.Paste(text);
    auto& edit = *dynamic_cast<QComboBox&>(widget).lineEdit();
    if (!text.empty()) return Retype(widget, edit, text);
    edit.selectAll();
    QTest::keyClick(&widget, Qt::Key_Delete);
}

void Act(XAmbitPurge& field, QWidget& widget, Random& random) {
    if (Below(random, 2) == 0) {
        field.Click();
        return QTest::keyClick(widget.findChild<QWidget*>(), Qt::Key_Space);
    }
    field.Key(U'1' + static_cast<char32_t>(Below(random, 9)));
    auto& days = *widget.findChild<QLineEdit*>();
    Retype(days, days, field.DaysText());
}

void Act(XAmbitDownload& field, QWidget& widget, Random& random) {
    const auto mode = static_cast<std::size_t>(Below(random, 2));
    field.Pick(downloadModes[mode].text);
    QTest::mouseClick(widget.findChildren<QRadioButton*>()[static_cast<int>(mode)], Qt::LeftButton, {},
                      {8, 8});
}

template <class Kind>
bool ActAs(ViewField& field, QWidget& widget, Random& random) {
    auto* const kind = dynamic_cast<Kind*>(&field);
    if (kind == nullptr) return false;
    widget.setFocus();
    kind->SetFocus();
    Act(*kind, widget, random);
    return true;
}

constexpr std::array acts = {ActAs<CheckBox>, ActAs<DropDownList>, ActAs<TextBox>,     ActAs<SSDateCombo>,
                             ActAs<DTPicker>, ActAs<XMarlet>,      ActAs<XAmbitPurge>, ActAs<XAmbitDownload>};

std::string StateOf(const Page& page) {
    std::string state;
    for (const auto* field : page.tab->Fields()) state += Describe(*field).dump() + '\n';
    return state;
}

class Walks : public Windows, public testing::WithParamInterface<unsigned> {
  protected:
    static void ExpectMirrored(EntryEditor& editor, const Page& page) {
        for (const auto* field : page.tab->Fields()) {
            const QWidget& widget = *editor.PageOf(page).WidgetOf(*field);
            EXPECT_EQ(!widget.isHidden(), field->Visible()) << field->Name();
            const auto* list = dynamic_cast<const DropDownList*>(field);
            const auto* text = dynamic_cast<const TextBox*>(field);
            const std::string shown =
                list != nullptr   ? dynamic_cast<const QComboBox&>(widget).currentText().toStdString()
                : text != nullptr ? dynamic_cast<const QLineEdit&>(widget).text().toStdString()
                                  : "";
            EXPECT_EQ(shown, list != nullptr   ? list->Text()
                             : text != nullptr ? text->Text()
                                               : "")
                << field->Name();
        }
    }
};

TEST_P(Walks, OnFieldsAndOnWidgetsEndAlike) {
    Random random(GetParam());
    EntrySession fields(workspace, EntrySession::NewEntry{false, 1, "Nightly"});
    fields.Load();
    EntryEditor& editor = Open(NewSession());
    const Page* front = nullptr;
    for (int step = 0; step < 250; ++step) {
        const auto place = static_cast<std::size_t>(Below(random, 6));
        const Page& page = fields.Pages()[place];
        const Page& twin = editor.Session().Pages()[place];
        const auto& all = page.tab->Fields();
        ViewField& field = *all[static_cast<std::size_t>(Below(random, static_cast<int>(all.size())))];
        if (!field.IsUsable()) continue;
        QWidget& widget = Find(editor, std::string(page.sName) + "." + field.Name());
        ViewField* const left = front == nullptr || front == &page ? nullptr : front->tab->FocusedField();
        if (left != nullptr) left->LostFocus.Raise();  // a page that goes to the back has no focus
        front = &page;
        for (const auto act : acts)
            if (act(field, widget, random)) break;
        for (std::size_t i = 0; i < 6; ++i)
            ASSERT_EQ(StateOf(editor.Session().Pages()[i]), StateOf(fields.Pages()[i]))
                << field.Name() << " at " << step;
        ExpectMirrored(editor, twin);
    }
    const bool isSaved = fields.Save().refusedBy == nullptr;
    EXPECT_EQ(editor.Save(), isSaved);
    EXPECT_EQ(
        store.Sql(
            "SELECT COUNT(DISTINCT Periodicity || Frequency || FirstDateTime || FinalDateTime || RptGrpId || "
            "IncludeSundays || AutoPurge || PurgeInterval || RetrieveMode) FROM NOL_Schedule"),
        isSaved ? "1\n" : "0\n");
}

INSTANTIATE_TEST_SUITE_P(Seeds, Walks, testing::Range(1U, 9U));

}  // namespace

}  // namespace NolSchedCtls::Testing
