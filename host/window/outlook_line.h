// One line on what an entry that is being edited would run.
#pragma once

#include <QLabel>
#include <QTimer>
#include <optional>

#include "host/entries/entry_outlook.h"
#include "host/entries/entry_session.h"

namespace NolSchedCtls {

// "Next: Fri Nov 27 10:30 PM, Fri Jan 29 10:30 PM, ... 7 until Dec 31, 2027", or why it never runs, in the
// colour of warnings. Lives no longer than the session.
class OutlookLine : public QLabel {
  public:
    OutlookLine(EntrySession& sessionA, QWidget* parent);

    // As soon as the user's act has ended.
    void Follow() { delay.start(0); }
    // As the store's holidays and settings are now.
    void Reread();

  private:
    struct Line {
        QString text;
        bool isTrouble = false;
    };

    void Show();
    Line ViewedLine();
    void ReadOutlook();

    EntrySession& session;
    std::optional<EntryOutlook> outlook;  // as it was last read
    QString trouble;                      // why there is none
    QTimer delay;
};

}  // namespace NolSchedCtls
