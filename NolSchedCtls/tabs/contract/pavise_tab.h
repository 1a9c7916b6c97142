// What all six tabs have in common.
#pragma once

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/tabs/contract/pavise_control.h"
#include "NolSchedCtls/tabs/contract/pavise_notify.h"
#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API PaviseTab : public UserControl, public IPaviseControl {
  public:
    bool HandleTabProcess(const std::string& sProcess) override;  // always false
    void LoadState() override {}
    void SaveState() override {}
    // Whether the view is the record's: the last load has succeeded.
    bool IsLoaded() const { return obstacle.empty(); }

  protected:
    // The first step of a load, and its last. The first throws NolSchedError for no record.
    void Keep(std::shared_ptr<CNolSchedData> v, std::shared_ptr<CPaviseNotify> dtN);
    void Loaded() { obstacle.clear(); }
    // From the first step of a load on.
    CNolSchedData& Record() const { return *cSchedData; }
    // The first step of a save. Throws NolSchedError unless the tab is loaded.
    CNolSchedData& LoadedRecord() const;
    // The first step of a check: tells the same in the tab's error box.
    bool TellsLoaded(const std::string& sTitle) const;
    // Tells the host of an edit; nothing without a notifier.
    void NotifyChanged() const;
    // The tab's own error box with a stop sign.
    static void ShowError(const std::string& sText, const std::string& sTitle);
    // Nothing happens where the field cannot take the focus, or the host fails as it hears of it; nor, of the
    // first, if the tab is hidden.
    void SetFocusIfShown(ViewField& ctl) const;
    static void TrySetFocus(ViewField& ctl);

    std::shared_ptr<CPaviseNotify> cpvnNotify;
    std::shared_ptr<CNolSchedData> cSchedData;

  private:
    std::string obstacle = "The tab has no record; LoadData comes first.";  // to a check and a save
};

}  // namespace NolSchedCtls::inline v1
