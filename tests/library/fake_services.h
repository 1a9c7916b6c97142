// The services in memory, which here write down what was asked of them.
#pragma once

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/services/memory_services.h"
#include "NolSchedCtls/tabs/contract/pavise_control.h"
#include "NolSchedCtls/tabs/contract/pavise_notify.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::Testing {

// The services in memory, and what they were asked; set and read by the tests. It is five past nine on
// 2026-03-02.
struct World : MemoryStore {
    World() { now = ParseIso("2026-03-02T09:05"); }

    int failingStatement = 0;  // this one, counted from 1, fails; 0 for none
    int statements = 0;
    int providers = 0;  // how many were made
    std::function<void()> onReport;
    std::string trace;  // "DELETE ...; report; Nightly[16]: text; "

    std::string TakeTrace() { return std::exchange(trace, {}); }
};

// Installs the services over a world of its own for as long as it stands.
class InstalledWorld : public World {
  public:
    InstalledWorld();
    ~InstalledWorld();
};

std::unique_ptr<ServiceProvider> MakeProvider(World& world);

// Writes what the control does with focus and beep into the world's trace: "focus txtDuration; ".
void TraceControl(World& world, UserControl& control);

// A stored entry, its notifier and the documents that it may name. The notifier writes its calls into the
// trace, ahead of every tab that hears them: "MarkChanged; SetTabOverride HOM Study on; ".
struct OpenEntry : InstalledWorld {
    std::shared_ptr<CNolSchedData> record = std::make_shared<CNolSchedData>();
    std::shared_ptr<CPaviseNotify> notify;

    OpenEntry();
    // Trace and answer: "T[16]: text; refused".
    std::string Valid(IPaviseControl& tab);
    std::string Load(IPaviseControl& tab);
};

// An override of entry 42 with the polling interval 0 and the delay 5.
std::shared_ptr<CNolOverride> MakeOverride(const std::string& type, std::int32_t scenario = 12,
                                           std::int32_t duration = -1);

// The flags as "Y,,N,Y", and the overrides in their order as
// "PLM Study=42 PLM Study scenario duration polling delay log; ".
std::string FlagsOf(const CNolSchedData& record);
std::string OverridesOf(const CNolSchedData& record);

// The values with a bar after each.
template <class... Values>
std::string Barred(const Values&... values) {
    std::ostringstream text;
    ((text << values << "|"), ...);
    return text.str();
}

// The message of the failure that the act throws, or "no failure".
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
