// Services that answer from memory and write down what was asked of them.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "records/services/provider.h"
#include "tabs/contract/pavise_notify.h"
#include "toolkit/view_field.h"

namespace NolSchedCtls::Testing {

using Row = std::vector<LintelField>;

// What the fake services know and what they were asked; set and read by the tests.
struct World {
    std::vector<Row> rows;                  // what the next query gives
    std::vector<CaddisDocument> documents;  // all types together
    CaddisUser user;                        // no settings
    DateTime now = ComposeDateTime({.year = 2026, .month = 3, .day = 2, .hour = 9, .minute = 5});
    std::string scheduledDays = "30";  // option "Days" of a scheduled entry
    int failingStatement = 0;          // this one, counted from 1, raises; 0 for none
    int statements = 0;
    std::string trace;  // "DELETE ...; report; Nightly[16]: text; "

    std::string TakeTrace() { return std::exchange(trace, {}); }
};

// Installs the services over a world of its own for as long as it stands.
class InstalledWorld : public World {
  public:
    InstalledWorld();
    ~InstalledWorld();
};

// An override row as the table gives it; a number of 0 stands for a column without a value.
Row OverrideRow(std::int64_t id, const std::string& type, std::int64_t scenario, std::int64_t duration,
                std::int64_t polling, std::int64_t delay, const std::string& clearLog);

// A notifier that writes its calls into the world's trace, ahead of every tab that hears them:
// "MarkChanged; SetTabOverride HOM Study on; ".
std::shared_ptr<CPaviseNotify> TracedNotify(World& world);

// Writes what the control does with focus and beep into the world's trace: "focus txtDuration; ".
void TraceControl(World& world, UserControl& control);

// The message of the failure that the act raises, or "no failure".
template <class Act>
std::string FailureOf(Act act) {
    try {
        act();
    } catch (const NolSchedError& failure) {
        return failure.what();
    }
    return "no failure";
}

}  // namespace NolSchedCtls::Testing
