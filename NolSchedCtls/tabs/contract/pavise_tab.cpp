#include "NolSchedCtls/tabs/contract/pavise_tab.h"

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1 {

bool PaviseTab::HandleTabProcess(const std::string& /*sProcess*/) { return false; }

void PaviseTab::Keep(std::shared_ptr<CNolSchedData> v, std::shared_ptr<CPaviseNotify> dtN) {
    if (!v) throw NolSchedError("There is no record to load.");
    cpvnNotify = std::move(dtN);
    cSchedData = std::move(v);
    obstacle = "The tab has no record: LoadData did not succeed.";
}

CNolSchedData& PaviseTab::LoadedRecord() const {
    if (!IsLoaded()) throw NolSchedError(obstacle);
    return *cSchedData;
}

bool PaviseTab::TellsLoaded(const std::string& sTitle) const {
    if (!IsLoaded()) ShowError(obstacle, sTitle);
    return IsLoaded();
}

void PaviseTab::NotifyChanged() const {
    if (cpvnNotify) cpvnNotify->MarkChanged();
}

void PaviseTab::ShowError(const std::string& sText, const std::string& sTitle) {
    MessageService().Show(sText, MAppConstants::stopSign, sTitle, 0, 0);
}

void PaviseTab::SetFocusIfShown(ViewField& ctl) const {
    if (Visible()) TrySetFocus(ctl);
}

void PaviseTab::TrySetFocus(ViewField& ctl) {
    try {
        ctl.SetFocus();
    } catch (...) {
        // A box has told the user already; a field out of reach just does not get the focus.
    }
}

}  // namespace NolSchedCtls::inline v1
