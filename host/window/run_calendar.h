// A month whose days tell how often something runs.
#pragma once

#include <QCalendarWidget>
#include <vector>

namespace NolSchedCtls {

// The first day that the grid of a calendar without week numbers can show of its month.
QDate FirstShown(const QCalendarWidget& calendar);

class RunCalendar : public QCalendarWidget {
  public:
    explicit RunCalendar(QWidget* parent);

    static constexpr int daysShown = 42;
    // 0 for a day that is not counted.
    int CountOf(QDate day) const;
    void SetCounts(QDate firstA, std::vector<int> countsA);

  protected:
    void paintCell(QPainter* painter, const QRect& cell, QDate day) const override;

  private:
    QFont countFont;
    QDate first;
    std::vector<int> counts;
};

}  // namespace NolSchedCtls
