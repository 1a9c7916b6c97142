#include "host/window/week_view.h"

#include <QHeaderView>
#include <QPainter>
#include <numeric>

#include "host/window/accessibility.h"
#include "host/window/qt_text.h"
#include "host/window/run_text.h"

namespace NolSchedCtls {

namespace {

constexpr std::size_t groupsTold = 6;

// The busiest first; of many the rest in one.
QString GroupsText(const WeekLoad& load, const WeekLoad::Hour& hour) {
    std::vector<std::size_t> groups(hour.byGroup.size());
    std::iota(groups.begin(), groups.end(), 0U);
    std::erase_if(groups, [&](std::size_t group) { return hour.byGroup[group] == 0; });
    std::ranges::stable_sort(groups, std::greater(), [&](std::size_t group) { return hour.byGroup[group]; });
    QStringList texts;
    for (std::size_t place = 0; place < std::min(groups.size(), groupsTold); ++place)
        texts.append(u"%1 %2"_s.arg(load.groups[static_cast<qsizetype>(groups[place])],
                                    QLocale().toString(hour.byGroup[groups[place]])));
    if (groups.size() > groupsTold) texts.append(u"%1 more groups"_s.arg(groups.size() - groupsTold));
    return texts.join(u", "_s);
}

QString HourText(const WeekLoad& load, int hour) {
    const auto& held = load.hours[static_cast<std::size_t>(hour)];
    const DateTime begin = load.firstDay + hour / 24.0;
    const QString text = DayText(begin) + u' ' + TimeText(begin) + u": "_s;
    return held.runs == 0 ? text + u"no runs"_s
                          : text + CountText(held.runs) + u" - "_s + GroupsText(load, held);
}

// Of the hours to come.
QString BusiestText(const WeekLoad& load) {
    const auto busiest = std::ranges::max_element(load.hours.begin() + load.hourNow, load.hours.end(), {},
                                                  &WeekLoad::Hour::runs);
    return busiest->runs == 0
               ? QString()
               : u"Busiest: "_s + HourText(load, static_cast<int>(busiest - load.hours.begin()));
}

// Too narrow for a text a section: each sixth hour's goes over the next ones.
class HourHeader : public QHeaderView {
  public:
    explicit HourHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

  protected:
    void paintSection(QPainter* painter, const QRect& section, int hour) const override {
        if (hour % hoursTogether != 0) return;
        const QRect wide(section.topLeft(), QSize(section.width() * hoursTogether, section.height()));
        painter->setPen(palette().color(QPalette::WindowText));
        style()->drawItemText(painter, QStyle::visualRect(layoutDirection(), section, wide),
                              Qt::AlignLeft | Qt::AlignVCenter, palette(), true,
                              TimeText(hour / 24.0).remove(u":00"_s));
    }

  private:
    static constexpr int hoursTogether = 6;
};

}  // namespace

WeekView::WeekView(QWidget* parent) : QTableWidget(7, hoursOfDay, parent) {
    Explain(*this, u"Runs in each hour of the week"_s,
            u"How many runs begin in each hour; the busier, the darker."_s);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalHeader(new HourHeader(this));
    for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
        header->setMinimumSectionSize(4);
        header->setSectionResizeMode(QHeaderView::Stretch);
        header->setHighlightSections(false);
        header->setSectionsClickable(false);
    }
    QStringList hours;
    for (int hour = 0; hour < hoursOfDay; ++hour) hours.append(TimeText(hour / 24.0));
    setHorizontalHeaderLabels(hours);
    for (int hour = 0; hour < hoursOfWeek; ++hour)
        setItem(hour / hoursOfDay, hour % hoursOfDay, new QTableWidgetItem);
    setFixedHeight(fontMetrics().height() * 10);
    connect(this, &QTableWidget::currentItemChanged, this, &WeekView::TellCurrent);
}

void WeekView::Show(const WeekLoad& load) {
    QStringList days;
    for (int day = 0; day < 7; ++day) days.append(DayText(load.firstDay + day));
    setVerticalHeaderLabels(days);
    {
        const QSignalBlocker quiet(model());  // a screen reader would be told of each hour
        for (int hour = 0; hour < hoursOfWeek; ++hour) ShowHour(load, hour);
    }
    viewport()->update();
    busiest = BusiestText(load);
    TellCurrent();
}

void WeekView::ShowHour(const WeekLoad& load, int hour) {
    QTableWidgetItem& cell = *item(hour / hoursOfDay, hour % hoursOfDay);
    const QString text = HourText(load, hour);
    cell.setData(Qt::AccessibleTextRole, text);
    cell.setToolTip(u"<p>%1</p>"_s.arg(text.toHtmlEscaped()));
    QColor shade = palette().color(QPalette::Link);
    const int runs = load.hours[static_cast<std::size_t>(hour)].runs;
    shade.setAlphaF(runs == 0 ? 0 : 0.1F + 0.9F * static_cast<float>(runs) / static_cast<float>(load.most));
    cell.setBackground(shade);
}

void WeekView::TellCurrent() {
    const QTableWidgetItem* const cell = currentItem();
    Q_EMIT Told(cell == nullptr ? busiest : cell->data(Qt::AccessibleTextRole).toString());
}

}  // namespace NolSchedCtls
