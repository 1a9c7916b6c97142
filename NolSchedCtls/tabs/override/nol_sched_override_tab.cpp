#include "NolSchedCtls/tabs/override/nol_sched_override_tab.h"

#include <limits>

#include "NolSchedCtls/base/live_objects.h"
#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/tabs/override/numeric_text.h"
#include "NolSchedCtls/tabs/override/override_kind.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::string TextOfNumber(std::int32_t number) { return number >= 1 ? std::to_string(number) : std::string(); }

std::string RangeMessage(const NumberField& field) {
    return std::string(field.sSubject) + " must be between " + std::to_string(field.nLowest) + " and " +
           std::to_string(field.nHighest) + " " + std::string(field.sUnit) + " inclusive" +
           std::string(field.sRangeEnd);
}

// A leading 0 makes an empty text 0; it also leaves a text with a sign no number, which the range then
// refuses.
bool IsInRange(const NumberField& field, const std::string& text) {
    constexpr std::int32_t highest = std::numeric_limits<std::int16_t>::max();
    const auto number = ToWholeNumber("0" + text, 0, highest);
    return number && *number >= field.nLowest && *number <= field.nHighest && *number % field.nStep == 0;
}

std::int32_t NumberOfText(const NumberField& field, const std::string& text) {
    if (text.empty()) return -1;
    using Limits = std::numeric_limits<std::int32_t>;
    if (const auto number = ToWholeNumber(text, Limits::min(), Limits::max())) return *number;
    throw NolSchedError("The " + std::string(field.sSubject) + " " + Quoted(text) + " is no 32-bit number.");
}

}  // namespace

NolSchedOverrideTab::Number::Number(UserControl& control, const NumberField& fieldA)
    : field(fieldA),
      frame(control, field.sFrame, field.sFrameCaption),
      text(frame, field.sTextBox, field.nMaxLength),
      unit(frame, field.sUnitLabel, field.sUnitCaption) {}

NolSchedOverrideTab::NolSchedOverrideTab(const OverrideKind& kindA)
    : kind(kindA),
      chkOverride(*this, "chkOverride", kind.sBoxCaption),
      scenario(kind.sScenarioHeading.empty() ? nullptr : std::make_unique<Scenario>(*this)),
      numbers(MakeNumbers()),
      note(kind.sNote.empty() ? nullptr : std::make_unique<Label>(*this, "lblNote", kind.sNote)) {}

std::vector<std::unique_ptr<NolSchedOverrideTab::Number>> NolSchedOverrideTab::MakeNumbers() {
    std::vector<std::unique_ptr<Number>> made;
    made.reserve(kind.numberFields.size());
    for (const NumberField& field : kind.numberFields) made.push_back(std::make_unique<Number>(*this, field));
    return made;
}

Label& NolSchedOverrideTab::Label1(std::size_t index) {
    if (index < numbers.size()) return numbers[index]->unit;
    throw NolSchedError("The tab has no Label1(" + std::to_string(index) + ").");
}

XNolSchedHomOvr::XNolSchedHomOvr() : NolSchedOverrideTab(homOverride) {}
XNolSchedPlmOvr::XNolSchedPlmOvr() : NolSchedOverrideTab(plmOverride) {}
XNolSchedRfcOvr::XNolSchedRfcOvr() : NolSchedOverrideTab(rfcOverride) {}
XNolSchedVcsOvr::XNolSchedVcsOvr() : NolSchedOverrideTab(vcsOverride) {}

void NolSchedOverrideTab::OnEvent(ViewField& field, const Event<>& /*event*/) {
    if (&field == &chkOverride) SetOverrideState(chkOverride.Value() == 1);
    NotifyChanged();
}

void NolSchedOverrideTab::OnKeyTyped(TextBox& box, char32_t& key) { MNolSchedCtls::FilterDigitKey(box, key); }

void NolSchedOverrideTab::SetOverrideState(bool fState) {
    fOverrideOn = fState;
    chkOverride.SetValue(fState ? 1 : 0);
    if (scenario) scenario->fraScenario.SetVisible(fState);
    for (const auto& number : numbers) number->frame.SetVisible(fState);
    if (cpvnNotify) cpvnNotify->SetTabState(sOverrideKey, fState);
}

void NolSchedOverrideTab::TabOverride(const std::string& TheName, bool TheState) {
    if (TheName == kind.study.sKey) SetOverrideState(TheState);
}

void NolSchedOverrideTab::LoadData(std::shared_ptr<CNolSchedData> v, const std::string& /*sName*/,
                                   std::shared_ptr<CPaviseNotify> dtN) {
    Keep(std::move(v), std::move(dtN));
    tabOverride = !cpvnNotify
                      ? Connection()
                      : cpvnNotify->TabOverride.Connect([this](const std::string& TheName, bool TheState) {
                            TabOverride(TheName, TheState);
                        });
    sOverrideKey = kind.study.sKey;
    if (scenario)
        scenario->fdocCBScenario.RestoreState(
            CaddisPickerStates().PickerStates().StatesForType(CaddisScenarios().ScenarioDocumentType()));
    if (const auto item = cSchedData->GetOverride(sOverrideKey))
        LoadOverride(*item);
    else
        LoadNoOverride();
    Loaded();
}

void NolSchedOverrideTab::LoadNoOverride() {
    if (scenario) {
        scenario->fdocCBScenario.SetPendingFlag(false);
        scenario->fdocCBScenario.SetDocument(nullptr);
    }
    SetOverrideState(false);
    if (cSchedData->Overrides().Count() > 0 && cSchedData->IsOverride()) chkOverride.SetEnabled(false);
}

void NolSchedOverrideTab::LoadOverride(const CNolOverride& item) {
    chkOverride.SetValue(1);
    if (scenario) ShowScenario(item);
    for (const auto& number : numbers) number->text.SetText(TextOfNumber(item.*number->field.pValue));
    SetOverrideState(true);
}

void NolSchedOverrideTab::ShowScenario(const CNolOverride& item) {
    XMarlet& picker = scenario->fdocCBScenario;
    if (item.ScenarioId < 1) {
        picker.SetDocument(nullptr);
        return;
    }
    picker.SetDocument(CaddisStore().FindDocument(CaddisScenarios().ScenarioDocumentType(), item.ScenarioId));
    picker.SetPendingFlag(false);
}

bool NolSchedOverrideTab::IsTabValid(const std::string& sMsgBoxTitle) {
    if (!TellsLoaded(sMsgBoxTitle)) return false;
    if (!fOverrideOn) return true;
    if (scenario && !IsScenarioValid(sMsgBoxTitle)) return false;
    for (const auto& number : numbers)
        if (!number->text.Text().empty() && !IsNumberValid(*number, sMsgBoxTitle)) return false;
    return true;
}

bool NolSchedOverrideTab::IsScenarioValid(const std::string& sMsgBoxTitle) {
    XMarlet& picker = scenario->fdocCBScenario;
    if (picker.ValidDocument()) return true;
    const std::string message = picker.CheckMessage();
    if (message.starts_with("A Scenario is required.")) return true;  // none chosen: the study's own is used
    ShowError(std::string(kind.sScenarioHeading) + "\r\n" + message, sMsgBoxTitle);
    if (cpvnNotify) cpvnNotify->ShowTab(sOverrideKey);
    SetFocusIfShown(picker);
    return false;
}

bool NolSchedOverrideTab::IsNumberValid(Number& number, const std::string& sMsgBoxTitle) {
    const std::string& text = number.text.Text();
    const bool numeric = IsNumeric(text);
    if (numeric && IsInRange(number.field, text)) return true;
    ShowError(numeric ? RangeMessage(number.field) : std::string(number.field.sSubject) + " must be numeric.",
              sMsgBoxTitle);
    SetFocusIfShown(number.text);
    return false;
}

std::shared_ptr<CNolOverride> NolSchedOverrideTab::OverrideOfView() const {
    auto item = Counted(std::make_shared<CNolOverride>());
    item->NOL_OverrideId = cSchedData->Id;
    item->OverrideType = sOverrideKey;
    if (scenario && scenario->fdocCBScenario.Document()) {
        const XMarlet& picker = scenario->fdocCBScenario;
        item->ScenarioId = picker.Document()->Id;
        picker.KeepState(*CaddisPickerStates().PickerStates().StatesForType(picker.Document()->DocumentType));
    }
    for (const auto& number : numbers)
        item.get()->*number->field.pValue = NumberOfText(number->field, number->text.Text());
    return item;
}

void NolSchedOverrideTab::SaveData() {
    CNolSchedData& data = LoadedRecord();
    if (!fOverrideOn) return;
    auto item = OverrideOfView();
    data.*kind.study.pFlag = "Y";
    data.RemoveNolOverride(sOverrideKey);
    data.AddNolOverride(std::move(item), sOverrideKey);
}

}  // namespace NolSchedCtls::inline v1
