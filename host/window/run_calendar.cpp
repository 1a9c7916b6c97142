#include "host/window/run_calendar.h"

#include <QApplication>
#include <QPainter>
#include <QTextCharFormat>

#include "host/window/qt_text.h"
#include "host/window/run_text.h"

namespace NolSchedCtls {

namespace {

// Of four signs at most: "9999", "10k".
QString Brief(int count) {
    if (count < 10'000) return QString::number(count);
    return count < 1'000'000 ? u"%1k"_s.arg(count / 1000) : u"%1M"_s.arg(count / 1'000'000);
}

}  // namespace

RunCalendar::RunCalendar(QWidget* parent) : QCalendarWidget(parent) {
    setVerticalHeaderFormat(NoVerticalHeader);
    setFirstDayOfWeek(FirstDayOfWeek());
    QTextCharFormat plain;
    plain.setForeground(palette().text());
    for (const auto dayOfWeek : {Qt::Saturday, Qt::Sunday}) setWeekdayTextFormat(dayOfWeek, plain);
    setFixedHeight(fontMetrics().height() * 13);
    countFont = font();
    countFont.setPointSizeF(countFont.pointSizeF() * 0.8);
    countFont.setBold(true);
}

// The grid shows a week of the month before where the month begins with the week.
QDate FirstShown(const QCalendarWidget& calendar) {
    const QDate month(calendar.yearShown(), calendar.monthShown(), 1);
    const int before = (month.dayOfWeek() - calendar.firstDayOfWeek() + 7) % 7;
    return month.addDays(before == 0 ? -7 : -before);
}

void RunCalendar::SetCounts(QDate firstA, std::vector<int> countsA) {
    first = firstA;
    counts = std::move(countsA);
    updateCells();
}

int RunCalendar::CountOf(QDate day) const {
    const qint64 place = first.isValid() ? first.daysTo(day) : -1;
    return place < 0 || place >= std::ssize(counts) ? 0 : counts[static_cast<std::size_t>(place)];
}

void RunCalendar::paintCell(QPainter* painter, const QRect& cell, QDate day) const {
    const bool isChosen = day == selectedDate();
    const bool isOfMonth = day.month() == monthShown();
    const auto color = [&](QPalette::ColorRole role) {
        if (isChosen) return palette().color(QPalette::HighlightedText);
        return palette().color(isOfMonth ? QPalette::Active : QPalette::Disabled, role);
    };
    const QRect inside = cell.adjusted(4, 1, -3, -1);
    painter->save();
    if (isChosen) painter->fillRect(cell, palette().highlight());
    painter->setPen(color(QPalette::Text));
    painter->drawText(inside, Qt::AlignLeft | Qt::AlignTop, QString::number(day.day()));
    if (isChosen && isAncestorOf(QApplication::focusWidget())) painter->drawRect(cell.adjusted(1, 1, -2, -2));
    if (const int count = CountOf(day); count != 0) {
        painter->setFont(countFont);
        painter->setPen(color(QPalette::Link));
        painter->drawText(inside, Qt::AlignRight | Qt::AlignBottom, Brief(count));
    }
    painter->restore();
}

}  // namespace NolSchedCtls
