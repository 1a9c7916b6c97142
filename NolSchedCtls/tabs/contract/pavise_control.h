// What every tab offers its host.
//
// Call order: LoadData first. SaveData only after an IsTabValid that gave true, since it converts texts
// unchecked. All calls come on the thread that made the tab. No tab relies on an order among the tabs.
#pragma once

#include <memory>
#include <string>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls {

class CNolSchedData;
class CPaviseNotify;

class NOLSCHED_API IPaviseControl {
  public:
    virtual ~IPaviseControl() = default;
    virtual bool HandleTabProcess(const std::string& sProcess) = 0;
    // Shows the first failure in a box of its own, under the title, and sets the focus.
    virtual bool IsTabValid(const std::string& sMsgBoxTitle) = 0;
    virtual void LoadState() = 0;
    // Writes the view to the record.
    virtual void SaveData() = 0;
    // Keeps the record and the notifier, both shared with the host, and fills the view. The tab reports
    // changes while it loads, like a user's. A failure leaves the earlier steps in force.
    virtual void LoadData(std::shared_ptr<CNolSchedData> v, const std::string& sName,
                          std::shared_ptr<CPaviseNotify> dtN) = 0;
    virtual void SaveState() = 0;
};

}  // namespace NolSchedCtls
