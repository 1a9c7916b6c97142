// What will run: of the chosen entries a month and the next runs, of all entries the load of a week.
#pragma once

#include <QScrollArea>
#include <QTimer>

#include "host/window/background_job.h"
#include "host/window/run_counts.h"

class QLabel;
class QVBoxLayout;
class QListWidget;
class QToolButton;

namespace NolSchedCtls {

class RunCalendar;
class WeekView;

// Its parts are made after its first frame, so that the list is there at once. Counts on threads beside the
// windows, and only while it is visible. What it shows stays until what takes
// its place is counted. Scrolls where it has not the height for its parts.
class OutlookPane : public QScrollArea {
    Q_OBJECT

  public:
    explicit OutlookPane(QWidget* parent);

    void ShowChosen(EntryRows entries, const QString& titleA);
    void ShowAll(EntryRows entries);
    // Until all that is to be seen is there.
    bool IsCounting() const;

  Q_SIGNALS:
    // A run of the entry was chosen.
    void Opened(int id);

  protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void Make();
    void MakeCalendar();
    void MakeList();
    void MakeWeek();
    bool IsInUse() const { return column != nullptr && isGiven && isVisible(); }
    void CountChosen();
    void ShowCounting();
    void CountMonth();
    void CountRuns();
    void CountWeek();
    void Show(const std::vector<ShownRun>& found, int count);
    void List(int left);
    void ChooseDay(std::optional<DateTime> dayA);

    EntryRows chosen;
    EntryRows all;
    QString title;
    bool isGiven = false;  // before, nothing can be told
    bool isWeekGiven = false;
    std::optional<DateTime> day;  // whose runs are listed; otherwise the next ones
    std::optional<std::vector<ShownRun>> shown;
    QTimer afterPaint;
    QVBoxLayout* column = nullptr;
    QLabel* heading = nullptr;
    RunCalendar* calendar = nullptr;
    QLabel* listed = nullptr;
    QToolButton* back = nullptr;
    QListWidget* runs = nullptr;
    WeekView* week = nullptr;
    BackgroundJob monthJob;
    BackgroundJob runsJob;
    BackgroundJob weekJob;
};

}  // namespace NolSchedCtls
