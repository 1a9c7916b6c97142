// The first page of an entry: study group, purge and download options, and the boxes of the four overrides.
#pragma once

#include <span>

#include "NolSchedCtls/base/export.h"
#include "NolSchedCtls/tabs/contract/pavise_tab.h"
#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/text_box.h"
#include "NolSchedCtls/toolkit/x_ambit.h"
#include "NolSchedCtls/toolkit/x_marlet.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API XNolSchedGenTab : public PaviseTab {
  public:
    XNolSchedGenTab();

    bool IsTabValid(const std::string& sMsgBoxTitle) override;
    // Throws NolSchedError without a chosen group, before the record is touched.
    void SaveData() override;
    void LoadData(std::shared_ptr<CNolSchedData> v, const std::string& sName,
                  std::shared_ptr<CPaviseNotify> dtN) override;
    void SaveState() override;  // the picker remembers the chosen group

    Frame Frame2{*this, "Frame2", "Study Group  "};
    XMarlet fdocRptGroup{Frame2, "fdocRptGroup", "Study Group"};
    TextBox txtRptGrp{Frame2, "txtRptGrp"};  // an immediate entry's group, in the picker's place
    Frame Frame5{*this, "Frame5", "Purge  "};
    XAmbitPurge ctlPurgeOptions{Frame5, "ctlPurgeOptions"};
    Frame Frame4{*this, "Frame4", "Download  "};
    XAmbitDownload ctlDownloadOptions{Frame4, "ctlDownloadOptions"};
    Frame Frame1{*this, "Frame1", "Override  "};
    CheckBox chkPlm{Frame1, "chkPlm", "PLM"};
    CheckBox chkHom{Frame1, "chkHom", "HOM"};
    CheckBox chkRfc{Frame1, "chkRfc", "RF Call Trace"};
    CheckBox chkVcs{Frame1, "chkVcs", "VCSA"};
    CheckBox chkCreateFiles{*this, "chkCreateFiles", "Create .efg/.pfg File(s)"};

  private:
    struct KindBox;
    static std::span<const KindBox> KindBoxes();

    void OnEvent(ViewField& field, const Event<>& event) override;
    void ShowGroup();
    void CheckPurge();
    void ShowFlags();
    void EnableKindBoxes();
    void KindBoxClicked(const KindBox& kindBox);
    void PaviseStateChange(const std::string& sTabName, bool fState);

    bool fLoading = true;  // until the end of the first load; silences the picker alone
    ScopedConnection stateChange;
};

}  // namespace NolSchedCtls::inline v1
