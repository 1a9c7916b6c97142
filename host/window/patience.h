// The windows while the store makes a statement wait.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "platform/database.h"

class QDialog;

namespace NolSchedCtls {

// After half a second a box tells that the store makes wait and offers to give up, also by Escape; the
// windows are drawn, and nothing else can be done in them: no click, no closing, no timer of their own comes
// through, and keys come once the waiting has ended. Lives no longer than the database.
class Patience : public QObject {
  public:
    explicit Patience(Database& databaseA);
    ~Patience() override;

    // As long as it stands, a statement is given up after a second, without a box: what is typed meanwhile
    // waits.
    class Short {
      public:
        explicit Short(Patience& patienceA) : patience(patienceA) { patience.isShort = true; }
        ~Short() { patience.isShort = false; }
        Short(const Short&) = delete;
        Short& operator=(const Short&) = delete;

      private:
        Patience& patience;
    };

  protected:
    bool eventFilter(QObject* target, QEvent* event) override;

  private:
    bool HoldKey(QObject& target, const QEvent& event);
    bool GoesOn(std::chrono::milliseconds waited);
    void ShowBox();
    void End();

    Database& database;
    std::unique_ptr<QDialog> box;
    ScopedConnection ended;
    std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>> heldKeys;
    bool isWaiting = false;
    bool isGivenUp = false;
    bool isShort = false;
};

}  // namespace NolSchedCtls
