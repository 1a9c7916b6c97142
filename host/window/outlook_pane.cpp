#include "host/window/outlook_pane.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QStyle>
#include <QToolButton>

#include "NolSchedCtls/services/provider.h"
#include "host/window/accessibility.h"
#include "host/window/date_combo.h"
#include "host/window/qt_text.h"
#include "host/window/run_calendar.h"
#include "host/window/run_text.h"
#include "host/window/week_view.h"

namespace NolSchedCtls {

namespace {

constexpr std::size_t nextRuns = 20;
constexpr std::size_t mostRunsOfDay = 500;
constexpr int leastRunsSeen = 6;
constexpr qsizetype mostCountedAtOnce = 10'000;  // take no time that is seen

// Whatever the text, it neither widens the pane nor is it read as markup.
QLabel* MakeLabel(QWidget* parent, Qt::Alignment height = Qt::AlignVCenter) {
    auto* const label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(QStyle::visualAlignment(label->layoutDirection(), Qt::AlignLeft) | height);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

void SetBold(QLabel& label) {
    QFont font = label.font();
    font.setBold(true);
    label.setFont(font);
}

}  // namespace

OutlookPane::OutlookPane(QWidget* parent) : QScrollArea(parent) {
    setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    afterPaint.setSingleShot(true);
    connect(&afterPaint, &QTimer::timeout, this, &OutlookPane::Make);
}

void OutlookPane::paintEvent(QPaintEvent* event) {
    QScrollArea::paintEvent(event);
    if (column == nullptr) afterPaint.start();
}

void OutlookPane::Make() {
    if (column != nullptr) return;
    auto* const inside = new QWidget;
    column = new QVBoxLayout(inside);
    column->setContentsMargins(8, 6, 8, 6);
    MakeCalendar();
    MakeList();
    MakeWeek();
    setWidget(inside);
    CountChosen();
    CountWeek();
}

void OutlookPane::MakeCalendar() {
    heading = MakeLabel(this);
    SetBold(*heading);
    column->addWidget(heading);
    calendar = new RunCalendar(this);
    Explain(*calendar, u"Runs on each day"_s,
            u"How often the chosen entries run on each day; the list below tells of one."_s);
    NameParts(*calendar);
    calendar->setDateRange({1900, 1, 1}, {9998, 12, 31});
    calendar->setSelectedDate(ToQDate(Clock().Now()));
    calendar->setCurrentPage(calendar->selectedDate().year(), calendar->selectedDate().month());
    connect(calendar, &QCalendarWidget::currentPageChanged, this, &OutlookPane::CountMonth);
    const auto choose = [this] { ChooseDay(FromQDate(calendar->selectedDate())); };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::selectionChanged, this, choose);
    column->addWidget(calendar);
}

void OutlookPane::MakeList() {
    auto* const row = new QHBoxLayout;
    listed = MakeLabel(this);
    back = new QToolButton(this);
    back->setObjectName(u"back"_s);
    back->setText(u"Next runs"_s);
    back->hide();
    back->setToolTip(u"Lists the next runs instead of one day's"_s);
    connect(back, &QToolButton::clicked, this, [this] { ChooseDay({}); });
    row->addWidget(listed, 1);
    row->addWidget(back);
    column->addLayout(row);
    runs = new QListWidget(this);
    Explain(*runs, u"Runs"_s, u"When which entry runs; Enter opens it."_s);
    runs->setUniformItemSizes(true);
    runs->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);  // takes the height that is left
    runs->setMinimumHeight(runs->fontMetrics().height() * leastRunsSeen);
    connect(runs, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
        if (const int id = item->data(Qt::UserRole).toInt()) Q_EMIT Opened(id);
    });
    column->addWidget(runs, 1);
}

void OutlookPane::MakeWeek() {
    auto* const above = MakeLabel(this);
    above->setText(u"Week load of all entries"_s);
    SetBold(*above);
    column->addWidget(above);
    week = new WeekView(this);
    column->addWidget(week);
    auto* const told = MakeLabel(this, Qt::AlignTop);
    told->setFixedHeight(told->fontMetrics().lineSpacing() * 3);
    connect(week, &WeekView::Told, told, &QLabel::setText);
    column->addWidget(told);
}

bool OutlookPane::IsCounting() const {
    return column == nullptr || !isGiven || !isWeekGiven || monthJob.IsRunning() || runsJob.IsRunning() ||
           weekJob.IsRunning();
}

void OutlookPane::ShowChosen(EntryRows entries, const QString& titleA) {
    const bool areOthers = titleA != title;
    chosen = std::move(entries);
    title = titleA;
    isGiven = true;
    if (areOthers && chosen.size() > mostCountedAtOnce && IsInUse()) ShowCounting();
    CountChosen();
}

void OutlookPane::ShowAll(EntryRows entries) {
    all = std::move(entries);
    isWeekGiven = true;
    CountWeek();
}

void OutlookPane::showEvent(QShowEvent* event) {
    QScrollArea::showEvent(event);
    CountChosen();
    CountWeek();
}

void OutlookPane::CountChosen() {
    if (!IsInUse()) return;
    heading->setText(title);
    CountMonth();
    CountRuns();
}

// What was counted of others would stand under the new heading for as long as that takes.
void OutlookPane::ShowCounting() {
    calendar->SetCounts({}, {});
    runs->clear();
    shown.reset();
    listed->setText(u"Counting..."_s);
}

void OutlookPane::ChooseDay(std::optional<DateTime> dayA) {
    day = dayA;
    shown.reset();
    CountRuns();
}

void OutlookPane::CountMonth() {
    if (!IsInUse()) return;
    const QDate first = FirstShown(*calendar);
    monthJob.Start(
        [entries = chosen, from = FromQDate(first)](const std::stop_token& stop) {
            return CountByDay(entries, from, RunCalendar::daysShown, stop);
        },
        [this, first](std::vector<int> counts) { calendar->SetCounts(first, std::move(counts)); });
}

void OutlookPane::CountRuns() {
    if (!IsInUse()) return;
    struct Found {
        std::vector<ShownRun> runs;
        int all = 0;
    };
    const auto find = [entries = chosen, ofDay = day, now = Clock().Now()](const std::stop_token& stop) {
        if (!ofDay) return Found{FirstRuns(entries, now + second, DateTimeOf(latestMoment), nextRuns, stop)};
        return Found{FirstRuns(entries, *ofDay, *ofDay + 1 - second, mostRunsOfDay, stop),
                     CountByDay(entries, *ofDay, 1, stop).front()};
    };
    runsJob.Start(find, [this](const Found& found) { Show(found.runs, found.all); });
}

void OutlookPane::CountWeek() {
    if (!isWeekGiven || column == nullptr || !isVisible()) return;
    weekJob.Start([entries = all, now = Clock().Now()](
                      const std::stop_token& stop) { return LoadOfWeek(entries, now, stop); },
                  [this](const WeekLoad& load) { week->Show(load); });
}

void OutlookPane::Show(const std::vector<ShownRun>& found, int count) {
    const QString none = found.empty() ? u"No next run"_s : u"Next runs"_s;
    listed->setText(day ? DayText(*day) + u": "_s + CountText(count) : none);
    back->setVisible(day.has_value());
    const int left = count - static_cast<int>(found.size());
    if (shown == found && left <= 0) return;  // where the user has scrolled to stays
    shown = found;
    List(left);
}

void OutlookPane::List(int left) {
    const DateTime now = Clock().Now();
    runs->clear();
    QStringList texts;
    for (const auto& [at, id, name] : *shown)
        texts.append((day ? TimeText(at) : RunText(at, now)) + u"   "_s + name);
    if (left > 0) texts.append(u"... %1 more"_s.arg(QLocale().toString(left)));
    runs->addItems(texts);
    const QSignalBlocker quiet(runs->model());  // nothing that is seen or heard
    for (int place = 0; const auto& run : *shown)
        runs->item(place++)->setData(Qt::UserRole, static_cast<int>(run.id));
}

}  // namespace NolSchedCtls
