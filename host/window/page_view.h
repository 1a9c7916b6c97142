// One page of an entry: the widgets of a tab's fields, laid out.
#pragma once

#include <QHash>
#include <QWidget>

#include "NolSchedCtls/tabs/contract/pavise_tab.h"

namespace NolSchedCtls {

class XNolScheduleTab;

// Ends before its tab does. The widgets follow each other by Tab in the order of the tab's fields.
class PageView : public QWidget {
  public:
    PageView(PaviseTab& tabA, QWidget* parent);

    QWidget* WidgetOf(const ViewField& field) const { return widgets.value(&field); }
    // Gives the window's focus to the field that has the tab's; to nothing if there is none.
    void TakeFocus();

  private:
    void LayOut();
    void LayOutSchedule(const XNolScheduleTab& schedule);
    QLayout* DurationLayout(const XNolScheduleTab& schedule) const;
    QLayout* FrequencyLayout(const XNolScheduleTab& schedule) const;
    QLayout* ExcludeLayout(const XNolScheduleTab& schedule) const;
    QLayout* RowOf(const Frame& frame) const;
    void NameSentence(const XNolScheduleTab& schedule);
    void LinkLabels();
    void TellUnits();
    static void NameWidget(const ViewField& field, QWidget& widget);
    void SetTabOrder();
    void MoveFocus(const ViewField& field);

    PaviseTab& tab;
    QHash<const ViewField*, QWidget*> widgets;
    std::vector<ScopedConnection> connections;
};

}  // namespace NolSchedCtls
