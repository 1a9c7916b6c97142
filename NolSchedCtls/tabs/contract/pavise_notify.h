// The notifier, through which the tabs of one entry and their host meet.
#pragma once

#include <string>

#include "NolSchedCtls/base/event.h"
#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

// One for each open entry. Tabs call the operations; each raises its event before it returns.
class NOLSCHED_API CPaviseNotify {
  public:
    void MarkChanged() const { Changed.Raise(); }
    void ShowTab(const std::string& sTabName) const { TabShown.Raise(sTabName); }
    void SetTabOverride(const std::string& sTabName, bool fState) const {
        TabOverride.Raise(sTabName, fState);
    }
    void SetTabState(const std::string& sTabName, bool fState) const {
        PaviseStateChange.Raise(sTabName, fState);
    }

    // For the tabs: the general tab's box has switched a kind; an override tab's state has been set.
    Event<const std::string&, bool> TabOverride;
    Event<const std::string&, bool> PaviseStateChange;

    // For the host: the document has changed; the named tab should come to the front, before the focus is
    // set.
    Event<> Changed;
    Event<const std::string&> TabShown;
};

}  // namespace NolSchedCtls::inline v1
