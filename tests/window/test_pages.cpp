#include <QApplication>
#include <QComboBox>
#include <QLabel>

#include "tabs/schedule/nol_schedule_tab.h"
#include "tests/window/windows.h"

namespace NolSchedCtls::Testing {

namespace {

struct TabOrder {
    const char* page;
    const char* fields;  // a field of two parts twice
};

class TabOrders : public Windows, public testing::WithParamInterface<TabOrder> {
  protected:
    // The field that holds the focus, or empty for what is no field of the page.
    static std::string FocusedField(const PageView& view) {
        const QWidget* widget = QApplication::focusWidget();
        if (widget == nullptr || !view.isAncestorOf(widget)) return {};
        while (widget->objectName().isEmpty() || widget->objectName() == u"days"_s)
            widget = widget->parentWidget();
        return widget->objectName().toStdString();
    }
};

TEST_P(TabOrders, AreTheFieldsOwn) {
    EntryEditor& editor = Open(NewSession());
    editor.ShowPage(GetParam().page);
    const Page& page = *editor.Session().FindPage(GetParam().page);
    if (auto* schedule = dynamic_cast<XNolScheduleTab*>(page.tab.get())) {
        schedule->cboPeriod.Pick("Monthly");
        schedule->chkEndDate.Click();
        schedule->cboDayName.Pick("Monday");
    } else if (auto* box = dynamic_cast<CheckBox*>(page.tab->FindField("chkOverride"))) {
        box->Click();
    }
    const PageView& view = editor.PageOf(page);
    std::string order;
    for (auto* first : page.tab->Fields())
        if (first->IsUsable() && view.WidgetOf(*first)->focusPolicy() != Qt::NoFocus) {
            view.WidgetOf(*first)->setFocus();
            break;
        }
    for (std::string name; !(name = FocusedField(view)).empty();) {
        order += (order.empty() ? "" : " ") + name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, GetParam().fields);
}

INSTANTIATE_TEST_SUITE_P(
    All, TabOrders,
    testing::Values(
        TabOrder{
            "general",
            "fdocRptGroup ctlPurgeOptions ctlPurgeOptions ctlDownloadOptions chkPlm chkHom chkRfc chkVcs "
            "chkCreateFiles"},
        TabOrder{
            "schedule",
            "SSDStartDate chkEndDate SSDEndDate cboPeriod cboDayNum cboDayName cboFrequency dtpStartTime "
            "cbExcludeDay(7) cbExcludeDay(8)"},
        TabOrder{"hom", "chkOverride fdocCBScenario txtDuration"},
        TabOrder{"plm", "chkOverride fdocCBScenario txtDuration txtRetrieveDelay"},
        TabOrder{"rfc", "chkOverride txtDuration txtPollingInterval"},
        TabOrder{"vcsa", "chkOverride txtDuration txtRetrieveDelay"}),
    [](const auto& order) { return order.param.page; });

class Rows : public Windows, public testing::WithParamInterface<int> {};

TEST_P(Rows, StandFlushAndCutNoTextInAnyMode) {
    const QFont former = QApplication::font();
    QFont font = former;
    font.setPointSize(GetParam());
    QApplication::setFont(font);
    EntryEditor& editor = Open(NewSession());
    editor.ShowPage("schedule");
    const Page& page = *editor.Session().FindPage("schedule");
    auto& schedule = dynamic_cast<XNolScheduleTab&>(*page.tab);
    const PageView& view = editor.PageOf(page);
    for (int mode = 0; schedule.cboPeriod.PickIndex(mode); ++mode) {
        int edge = -1;
        for (const ViewField* field : schedule.Fields()) {
            const QWidget& widget = *view.WidgetOf(*field);
            if (widget.parentWidget() != view.WidgetOf(schedule.cboPeriod)->parentWidget() ||
                !field->Visible())
                continue;
            EXPECT_TRUE(edge < 0 || edge == widget.x()) << field->Name() << " in mode " << mode;
            EXPECT_GE(widget.width(), widget.sizeHint().width()) << field->Name() << " in mode " << mode;
            EXPECT_GE(widget.height(), widget.sizeHint().height()) << field->Name();
            edge = widget.x() + widget.width();
        }
        EXPECT_LE(edge, view.WidgetOf(schedule.cboPeriod)->parentWidget()->width());
    }
    QApplication::setFont(former);
}

INSTANTIATE_TEST_SUITE_P(Points, Rows, testing::Values(7, 9, 11, 16, 24), testing::PrintToStringParamName());

TEST_F(Windows, TheNoteReadsAsTwoNumberedLines) {
    EntryEditor& editor = Open(NewSession());
    const QStringList lines = Find<QLabel>(editor, "vcsa.lblNote").text().split(u'\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], u"Note:"_s);
    EXPECT_TRUE(lines[1].startsWith(u"(1) "_s) && lines[2].startsWith(u"(2) "_s));
}

TEST_F(Windows, EveryFieldThatTakesTheFocusHasAnAccessibleName) {
    EntryEditor& editor = Open(NewSession());
    for (const Page& page : editor.Session().Pages())
        for (const ViewField* field : page.tab->Fields()) {
            const QWidget& widget = *editor.PageOf(page).WidgetOf(*field);
            if (widget.focusPolicy() == Qt::NoFocus || qobject_cast<const QLabel*>(&widget) != nullptr)
                continue;
            EXPECT_FALSE(widget.accessibleName().isEmpty()) << page.sName << '.' << field->Name();
        }
}

}  // namespace

}  // namespace NolSchedCtls::Testing
