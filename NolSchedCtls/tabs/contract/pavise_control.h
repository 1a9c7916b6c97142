// What every tab offers its host.
//
// Call order: LoadData first, once for each tab: a tab that has shown another record keeps what that has left
// in hidden lists and texts. SaveData only after an IsTabValid that gave true, since it converts texts
// unchecked. All calls come on the thread that made the tab. No tab relies on an order among the tabs.
#pragma once

#include <memory>
#include <string>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

class CNolSchedData;
class CPaviseNotify;

class NOLSCHED_API IPaviseControl {
  public:
    virtual ~IPaviseControl() = default;
    virtual bool HandleTabProcess(const std::string& sProcess) = 0;  // whether the tab dealt with it
    // Shows the first failure in a box of its own, under the title, and sets the focus. A tab whose last load
    // did not succeed, or that has none, is not valid, and says so.
    virtual bool IsTabValid(const std::string& sMsgBoxTitle) = 0;
    // For what a tab remembers from one entry to the next: LoadState before LoadData, SaveState after the
    // host has stored the entry.
    virtual void LoadState() = 0;
    // Writes the view to the record. Throws NolSchedError unless the last load has succeeded.
    virtual void SaveData() = 0;
    // Keeps the record and the notifier, both shared with the host, and fills the view. The tab reports
    // changes while it loads, like a user's. Throws NolSchedError for no record, before it keeps anything,
    // and for one that it cannot show; the steps before stay in force. No notifier: the tab tells nobody.
    // sName is for tabs of other documents; the six here do not read it.
    virtual void LoadData(std::shared_ptr<CNolSchedData> v, const std::string& sName,
                          std::shared_ptr<CPaviseNotify> dtN) = 0;
    virtual void SaveState() = 0;
};

}  // namespace NolSchedCtls::inline v1
