// One page of an entry: the widgets of a tab's fields, laid out.
#pragma once

#include <QHash>
#include <QScrollArea>

#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/tabs/schedule/nol_schedule_tab.h"

namespace NolSchedCtls {

// Ends before its tab does. The widgets follow each other by Tab in the order of the tab's fields.
// Scrolls where it has not the room for them, and to the field that gets the focus.
class PageView : public QScrollArea {
  public:
    PageView(PaviseTab& tabA, QWidget* parent);

    QWidget* WidgetOf(const ViewField& field) const { return widgets.value(&field); }
    // Gives the window's focus to the field that has the tab's; to nothing if there is none.
    void TakeFocus();
    // Room for all, so that nothing scrolls without need.
    QSize sizeHint() const override { return body->sizeHint(); }

  private:
    void LayOut();
    void LayOutSchedule(const XNolScheduleTab& schedule);
    QLayout* DurationLayout(const XNolScheduleTab& schedule) const;
    QLayout* FrequencyLayout(const XNolScheduleTab& schedule) const;
    QLayout* ExcludeLayout(const XNolScheduleTab& schedule) const;
    QLayout* RowOf(const Frame& frame) const;
    void NameSentence(const XNolScheduleTab& schedule);
    void Follow();
    void TellUnits();
    void NameWidget(const ViewField& field, QWidget& widget) const;
    void SetTabOrder();
    void SetScrolling();
    void ScrollToFocus();
    void MoveFocus(const ViewField& field);

    PaviseTab& tab;
    QWidget* const body;  // holds the widgets
    QHash<const ViewField*, QWidget*> widgets;
    std::vector<ScopedConnection> connections;
    QObject following;  // of the focus; ends before the widgets, which hand it on as they go
};

}  // namespace NolSchedCtls
