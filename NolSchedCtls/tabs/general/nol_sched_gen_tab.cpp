#include "NolSchedCtls/tabs/general/nol_sched_gen_tab.h"

#include <array>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr const char* purgeWarningOfNew =
    "Warning! The purge interval that you have specified \r\n"
    "on the Schedule Options falls outside the range valid \r\n"
    "for your user id. The maximum allowable values will be \r\n"
    "used for this Schedule Entry.";
constexpr const char* purgeWarningOfStored =
    "Warning! The purge interval specified in this Schedule  \r\n"
    "Entry falls outside the range valid for your user id.  \r\n"
    "It will be replaced by the maximum allowable value.";
constexpr const char* groupDeleted =
    "The report group associated with this temporary schedule entry has been deleted.  "
    "You can not edit this document.";

CaddisDocumentType GroupType() { return DocumentTypes().TypeByName(MAppConstants::nolGroup); }
int BoxOfFlag(const std::string& flag) { return flag == "Y" ? 1 : 0; }
std::string FlagOfBox(const CheckBox& box) { return box.Value() != 0 ? "Y" : "N"; }

}  // namespace

// In the order in which a load shows them and a save writes them.
struct XNolSchedGenTab::KindBox {
    CheckBox XNolSchedGenTab::*pBox;
    const StudyKind& kind;
    bool fWritesFlagAtClick;  // the others' flags follow at the save
};

std::span<const XNolSchedGenTab::KindBox> XNolSchedGenTab::KindBoxes() {
    static constexpr std::array<KindBox, studyKinds.size()> kindBoxes = {
        KindBox{&XNolSchedGenTab::chkHom, *FindStudyKind(MAppConstants::homStudy), true},
        KindBox{&XNolSchedGenTab::chkPlm, *FindStudyKind(MAppConstants::plmStudy), false},
        KindBox{&XNolSchedGenTab::chkRfc, *FindStudyKind(MAppConstants::rfcStudy), false},
        KindBox{&XNolSchedGenTab::chkVcs, *FindStudyKind(MAppConstants::vcsStudy), false},
    };
    return kindBoxes;
}

XNolSchedGenTab::XNolSchedGenTab() {
    cSchedData = std::make_shared<CNolSchedData>();
    txtRptGrp.SetEnabled(false);
    txtRptGrp.SetVisible(false);
}

void XNolSchedGenTab::OnEvent(ViewField& field, const Event<>& /*event*/) {
    if (&field == &txtRptGrp || (&field == &fdocRptGroup && fLoading)) return;
    NotifyChanged();
    for (const KindBox& kindBox : KindBoxes())
        if (&field == &(this->*kindBox.pBox)) KindBoxClicked(kindBox);
}

void XNolSchedGenTab::LoadData(std::shared_ptr<CNolSchedData> v, const std::string& /*sName*/,
                               std::shared_ptr<CPaviseNotify> dtN) {
    Keep(std::move(v), std::move(dtN));
    stateChange =
        !cpvnNotify ? Connection()
                    : cpvnNotify->PaviseStateChange.Connect([this](const std::string& sTabName, bool fState) {
                          PaviseStateChange(sTabName, fState);
                      });
    fdocRptGroup.RestoreState(CaddisPickerStates().PickerStates().StatesForType(GroupType()));
    ShowGroup();
    CheckPurge();
    ctlDownloadOptions.SetDownloadMode(cSchedData->RetrieveMode);
    ShowFlags();
    if (cSchedData->Overrides().Count() > 0) EnableKindBoxes();
    fLoading = false;
    Loaded();
}

void XNolSchedGenTab::ShowGroup() {
    const auto group = [this] { return CaddisStore().FindDocument(GroupType(), cSchedData->RptGrpId); };
    if (cSchedData->RptGrpId != 0) fdocRptGroup.SetDocument(group());
    const bool isImmediate = cSchedData->IsOverride();
    fdocRptGroup.SetVisible(!isImmediate);
    txtRptGrp.SetVisible(isImmediate);
    if (!isImmediate) return;
    if (const auto found = group()) txtRptGrp.SetText(found->Name);
}

void XNolSchedGenTab::CheckPurge() {
    if (ctlPurgeOptions.LoadPurgeOptions(cSchedData->AutoPurge, cSchedData->PurgeInterval,
                                         CaddisStore().CurrentUser()))
        return;
    MessageService().Show(cSchedData->IsNew ? purgeWarningOfNew : purgeWarningOfStored,
                          MAppConstants::exclamationMark, cSchedData->EditorName, 0, 0);
}

void XNolSchedGenTab::ShowFlags() {
    for (const KindBox& kindBox : KindBoxes())
        (this->*kindBox.pBox).SetValue(BoxOfFlag((*cSchedData).*kindBox.kind.pFlag));
    chkCreateFiles.SetValue(BoxOfFlag(cSchedData->CreateFiles));
}

void XNolSchedGenTab::EnableKindBoxes() {
    for (const KindBox& kindBox : KindBoxes()) (this->*kindBox.pBox).SetEnabled(false);
    for (const auto& [key, item] : cSchedData->Overrides())
        for (const KindBox& kindBox : KindBoxes())
            if (kindBox.kind.sKey == item->OverrideType) (this->*kindBox.pBox).SetEnabled(true);
}

bool XNolSchedGenTab::IsTabValid(const std::string& sMsgBoxTitle) {
    if (!TellsLoaded(sMsgBoxTitle)) return false;
    if (fdocRptGroup.ValidDocument()) return ctlPurgeOptions.IsPurgeValid(sMsgBoxTitle);
    if (cSchedData->IsOverride()) {
        ShowError(groupDeleted, sMsgBoxTitle);
        return false;
    }
    ShowError(fdocRptGroup.CheckMessage(), sMsgBoxTitle);
    SetFocusIfShown(fdocRptGroup);
    return false;
}

void XNolSchedGenTab::SaveData() {
    const CNolSchedData& data = LoadedRecord();
    const auto& group = fdocRptGroup.Document();
    if (!group) throw NolSchedError("The entry " + Quoted(data.EditorName) + " has no study group to save.");
    cSchedData->RptGrpId = group->Id;
    cSchedData->AutoPurge = ctlPurgeOptions.AutoPurge();
    cSchedData->PurgeInterval = ctlPurgeOptions.PurgeDays();
    cSchedData->RetrieveMode = ctlDownloadOptions.DownloadMode();
    cSchedData->CreateFiles = FlagOfBox(chkCreateFiles);
    for (const KindBox& kindBox : KindBoxes())
        (*cSchedData).*kindBox.kind.pFlag = FlagOfBox(this->*kindBox.pBox);
}

void XNolSchedGenTab::SaveState() {
    const auto& group = fdocRptGroup.Document();
    if (cSchedData->IsOverride() || !group) return;
    fdocRptGroup.KeepState(*CaddisPickerStates().PickerStates().StatesForType(group->DocumentType));
}

void XNolSchedGenTab::KindBoxClicked(const KindBox& kindBox) {
    const CheckBox& box = this->*kindBox.pBox;
    if (kindBox.fWritesFlagAtClick) (*cSchedData).*kindBox.kind.pFlag = FlagOfBox(box);
    if (cpvnNotify) cpvnNotify->SetTabOverride(std::string(kindBox.kind.sKey), box.Value() != 0);
}

void XNolSchedGenTab::PaviseStateChange(const std::string& sTabName, bool fState) {
    for (const KindBox& kindBox : KindBoxes())
        if (kindBox.kind.sKey == sTabName) (this->*kindBox.pBox).SetValue(fState ? 1 : 0);
}

}  // namespace NolSchedCtls::inline v1
