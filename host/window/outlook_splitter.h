// The list, and beside it what will run.
#pragma once

#include <QSplitter>

class QAction;

namespace NolSchedCtls {

// The second widget is shown while the action is checked. In a window that has no room for both, the action
// is unchecked until there is room again; the user may check it all the same.
class OutlookSplitter : public QSplitter {
  public:
    OutlookSplitter(QAction& shownA, QWidget* parent);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool HasRoom() const;

    QAction& shown;
    bool hasRoom = true;
    bool wasShown = false;  // when there was room
};

}  // namespace NolSchedCtls
