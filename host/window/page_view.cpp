#include "host/window/page_view.h"

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <algorithm>
#include <array>

#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"
#include "NolSchedCtls/tabs/schedule/schedule_sentence.h"
#include "host/window/accessibility.h"
#include "host/window/bindings.h"
#include "host/window/field_link.h"
#include "host/window/field_text.h"
#include "host/window/qt_text.h"
#include "host/window/sentence_row.h"
#include "host/window/step_box.h"

namespace NolSchedCtls {

namespace {

constexpr int boxesInRow = 4;

// A text box takes the width of what a user can enter; one without a limit takes what there is.
bool IsShort(const QWidget& widget) {
    const auto* const box = dynamic_cast<const StepBox*>(&widget);
    return box != nullptr && box->Line().maxLength() < 100;
}

// About where the first field of the schedule's sentence stands, so that all frames line up.
int FrameIndent(const QWidget& widget) { return widget.fontMetrics().height() * 7 / 4; }

void FillFrame(QWidget& frame, QLayout* layout, int indent) {
    frame.setLayout(layout);
    const QMargins margins = layout->contentsMargins();
    layout->setContentsMargins(indent, margins.top(), indent, margins.bottom());
}

}  // namespace

PageView::PageView(PaviseTab& tabA, QWidget* parent)
    : QScrollArea(parent), tab(tabA), body(new QWidget(this)) {
    for (ViewField* field : tab.Fields()) {
        QWidget* const frame = field->Container() == nullptr ? body : WidgetOf(*field->Container());
        QWidget* const widget = BindField(*field, frame);
        widgets.insert(field, widget);
        NameWidget(*field, *widget);
    }
    LayOut();
    TellUnits();
    SetTabOrder();
    SetScrolling();
    Follow();
}

void PageView::Follow() {
    connections.emplace_back(tab.FieldChanged.Connect(
        [this](const ViewField& field, FieldPart) { FieldLink::Of(*WidgetOf(field)).Mirror(); }));
    connections.emplace_back(tab.FocusMoved.Connect([this](const ViewField& field) { MoveFocus(field); }));
    connections.emplace_back(tab.Beep.Connect([](const ViewField&) { QApplication::beep(); }));
}

// The ground is that of the pages. No stop of its own: the fields lead everywhere.
void PageView::SetScrolling() {
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setWidget(body);
    body->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    const auto follow = [this] { ScrollToFocus(); };
    connect(qApp, &QApplication::focusChanged, &following, follow);
    for (const auto* bar : {horizontalScrollBar(), verticalScrollBar()})
        connect(bar, &QScrollBar::rangeChanged, &following, follow);
}

// The way of its own that a scroll area has looks for the cursor alone, and does not read from right to left.
void PageView::ScrollToFocus() {
    const QWidget* const focused = QApplication::focusWidget();
    if (focused == nullptr || !body->isAncestorOf(focused)) return;
    const QRect place(focused->mapTo(body, QPoint()), focused->size());
    const QRect fromBegin = QStyle::visualRect(layoutDirection(), body->rect(), place);
    const auto show = [](QScrollBar& bar, int least, int first, int last, int room) {
        bar.setValue(std::min(first, std::max(least, last + 1 - room)));
    };
    const QSize room = viewport()->size();
    show(*horizontalScrollBar(), 0, fromBegin.left(), fromBegin.right(), room.width());
    show(*verticalScrollBar(), verticalScrollBar()->value(), fromBegin.top(), fromBegin.bottom(),
         room.height());
}

// Each part of a field of several tells what the field is for, under a name of its own.
void PageView::NameWidget(const ViewField& field, QWidget& widget) const {
    if (!field.IsTabStop()) return;
    if (const Label* const label = tab.LabelOf(field))
        qobject_cast<QLabel*>(WidgetOf(*label))->setBuddy(&widget);
    const FieldText text = TextOf(field);
    for (QWidget* stop : TabStops(widget))
        Explain(*stop, stop == &widget ? text.name : QString(), text.purpose);
}

QLayout* PageView::RowOf(const Frame& frame) const {
    auto* const row = new QHBoxLayout;
    bool isFilled = false;
    for (const ViewField* field : tab.Fields()) {
        if (field->Container() != &frame) continue;
        QWidget* const widget = WidgetOf(*field);
        const bool isShort = IsShort(*widget);
        if (isShort) widget->setFixedWidth(widget->fontMetrics().horizontalAdvance(u"0000000000"_s));
        const bool fills =
            !isShort && (widget->sizePolicy().horizontalPolicy() & QSizePolicy::ExpandFlag) != 0;
        isFilled = isFilled || fills;
        row->addWidget(widget, fills ? 1 : 0);
    }
    if (!isFilled) row->addStretch();
    return row;
}

void PageView::LayOut() {
    if (const auto* schedule = dynamic_cast<const XNolScheduleTab*>(&tab)) return LayOutSchedule(*schedule);
    auto* const column = new QVBoxLayout(body);
    for (ViewField* field : tab.Fields()) {
        if (field->Container() != nullptr) continue;
        QWidget* const widget = WidgetOf(*field);
        if (const auto* frame = FieldAs<Frame>(*field)) FillFrame(*widget, RowOf(*frame), FrameIndent(*this));
        if (auto* const label = qobject_cast<QLabel*>(widget)) label->setWordWrap(true);
        column->addWidget(widget);
    }
    column->addStretch();
}

void PageView::LayOutSchedule(const XNolScheduleTab& schedule) {
    auto* const column = new QVBoxLayout(body);
    const std::array<std::pair<const Frame*, QLayout*>, 3> frames = {
        std::pair{&schedule.Frame1, DurationLayout(schedule)},
        std::pair{&schedule.Frame2, FrequencyLayout(schedule)},
        std::pair{&schedule.Frame3, ExcludeLayout(schedule)}};
    NameSentence(schedule);
    for (const auto& [frame, layout] : frames) {
        FillFrame(*WidgetOf(*frame), layout, frame == &schedule.Frame2 ? 0 : FrameIndent(*this));
        column->addWidget(WidgetOf(*frame));
    }
    column->addStretch();
}

// The fields of the row change several at a time. What a user changes in it is said as the whole sentence.
void PageView::NameSentence(const XNolScheduleTab& schedule) {
    QWidget* const row = WidgetOf(schedule.cboPeriod)->parentWidget();
    SetRole(*row, QAccessible::Grouping);
    auto* const naming = new QTimer(row);
    naming->setSingleShot(true);
    const auto name = [&schedule, row] {
        const QString sentence = ToQt(ScheduleSentence(schedule));
        if (row->accessibleName() == sentence) return;
        row->setAccessibleName(sentence);
        if (row->isAncestorOf(QApplication::focusWidget())) Announce(*row, sentence);
    };
    connect(naming, &QTimer::timeout, row, name);
    name();
    connections.emplace_back(tab.FieldChanged.Connect([this, row, naming](const ViewField& field, FieldPart) {
        if (WidgetOf(field)->parentWidget() == row) naming->start(0);
    }));
}

QLayout* PageView::DurationLayout(const XNolScheduleTab& schedule) const {
    auto* const grid = new QGridLayout;
    grid->addWidget(WidgetOf(schedule.lblStartDate), 0, 0);
    grid->addWidget(WidgetOf(schedule.SSDStartDate), 0, 1);
    grid->addWidget(WidgetOf(schedule.chkEndDate), 1, 0);
    grid->addWidget(WidgetOf(schedule.SSDEndDate), 1, 1);
    grid->addWidget(WidgetOf(schedule.txtNoEndDate), 1, 1);
    grid->setColumnStretch(2, 1);
    return grid;
}

// The row of the sentence begins at the frame's edge, as its fields count; what stands above and below it is
// moved in to where the row's first field stands.
QLayout* PageView::FrequencyLayout(const XNolScheduleTab& schedule) const {
    auto* const row = new SentenceRow(tab, WidgetOf(schedule.Frame2));
    bool isInRow = false;
    for (ViewField* field : tab.Fields()) {
        isInRow = isInRow || field == &schedule.cboPeriod;
        if (isInRow) row->Add(*field, WidgetOf(*field));
        if (field == &schedule.lblUnit) break;
    }
    WidgetOf(schedule.dtpStartTime)->setFixedWidth(row->Scale().Pixels(schedule.dtpStartTime.Width()));
    const auto indented = [&](std::initializer_list<const ViewField*> fields) {
        auto* const line = new QHBoxLayout;
        line->addSpacing(row->Scale().Pixels(schedule.cboPeriod.Left()));
        for (const ViewField* field : fields) line->addWidget(WidgetOf(*field));
        line->addStretch();
        return line;
    };
    auto* const column = new QVBoxLayout;
    column->addLayout(indented({&schedule.lblRun}));
    column->addWidget(row);
    column->addLayout(indented({&schedule.lblStartTime, &schedule.dtpStartTime}));
    return column;
}

QLayout* PageView::ExcludeLayout(const XNolScheduleTab& schedule) const {
    auto* const grid = new QGridLayout;
    int place = 0;
    for (const CheckBox& box : schedule.cbExcludeDay) {
        if (&box == &schedule.cbExcludeDay[7]) place = 2 * boxesInRow;
        const bool isLast = &box == &schedule.cbExcludeDay.back();
        grid->addWidget(WidgetOf(box), place / boxesInRow, place % boxesInRow, 1, isLast ? 2 : 1);
        ++place;
    }
    for (int column = 0; column < boxesInRow; ++column) grid->setColumnStretch(column, 1);
    return grid;
}

// What stands behind a text box, its unit, is told with it.
void PageView::TellUnits() {
    QWidget* box = nullptr;
    for (ViewField* field : tab.Fields()) {
        QWidget* const widget = WidgetOf(*field);
        if (IsShort(*widget)) box = widget;
        const auto* const unit = qobject_cast<QLabel*>(widget);
        if (box == nullptr || unit == nullptr || box->parent() != unit->parent()) continue;
        Explain(*box, {}, u"%1 Unit: %2"_s.arg(box->whatsThis(), unit->text()));
    }
}

void PageView::SetTabOrder() {
    QWidget* before = nullptr;
    for (const ViewField* field : tab.Fields()) {
        if (!field->IsTabStop()) continue;
        for (QWidget* stop : TabStops(*WidgetOf(*field))) {
            if (before != nullptr) QWidget::setTabOrder(before, stop);
            before = stop;
        }
    }
}

// A widget of several parts keeps the focus where it has it.
void PageView::MoveFocus(const ViewField& field) {
    QWidget* const widget = WidgetOf(field);
    QWidget* const focused = QApplication::focusWidget();
    if (widget == nullptr || widget == focused || (focused != nullptr && widget->isAncestorOf(focused)))
        return;
    TabStops(*widget).value(0, widget)->setFocus(Qt::OtherFocusReason);
}

void PageView::TakeFocus() {
    if (const ViewField* const field = tab.FocusedField()) MoveFocus(*field);
}

}  // namespace NolSchedCtls
