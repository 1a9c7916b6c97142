// Seven days by twenty-four hours, the busier the darker.
#pragma once

#include <QTableWidget>

#include "host/window/run_counts.h"

namespace NolSchedCtls {

class WeekView : public QTableWidget {
    Q_OBJECT

  public:
    explicit WeekView(QWidget* parent);

    void Show(const WeekLoad& load);

  Q_SIGNALS:
    // What the chosen hour holds, by group.
    void Told(const QString& text);

  private:
    void ShowHour(const WeekLoad& load, int hour);
    void TellCurrent();

    QString busiest;  // told while no hour is chosen
};

}  // namespace NolSchedCtls
