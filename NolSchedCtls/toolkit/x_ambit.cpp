#include "NolSchedCtls/toolkit/x_ambit.h"

#include <algorithm>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/error.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/toolkit/text_box.h"
#include "NolSchedCtls/toolkit/text_edit.h"

namespace NolSchedCtls::inline v1 {

namespace {

std::int32_t MaximumOf(const CaddisUser& user) {
    const auto setting = user.Settings.find(MAppConstants::maxPurgeInterval);
    if (setting == user.Settings.end()) return maximumWithoutSetting;
    const auto number = ParseWhole(setting->second);
    if (!number || *number < 1)
        throw NolSchedError("The setting " + Quoted(MAppConstants::maxPurgeInterval) + " is " +
                            Quoted(setting->second) + ", which is no number of days.");
    return *number;
}

bool IsRequiredFor(const CaddisUser& user) {
    const auto setting = user.Settings.find(MAppConstants::autoPurgeRequired);
    return setting != user.Settings.end() && setting->second == "Y";
}

}  // namespace

bool XAmbitPurge::LoadPurgeOptions(const std::string& AutoPurgeA, std::int32_t PurgeIntervalA,
                                   const CaddisUser& user) {
    Assign(FieldPart::State, maximumDays, MaximumOf(user));
    isRequired = IsRequiredFor(user);
    const bool inRange = PurgeIntervalA >= 1 && PurgeIntervalA <= maximumDays;
    const std::string newDays = std::to_string(inRange ? PurgeIntervalA : maximumDays);
    const bool changed = AutoPurgeA != autoPurge || newDays != days;
    autoPurge = AutoPurgeA;
    days = newDays;
    Tell(FieldPart::Value);
    if (changed) RaiseOwn(Changed);
    return inRange;
}

void XAmbitPurge::Refused(std::string_view text, const std::string& title) const {
    MessageService().Show(text, MAppConstants::stopSign, title, 0, 0);
}

bool XAmbitPurge::IsPurgeValid(const std::string& title) const {
    if (isRequired && !IsOn()) {
        Refused("Automatic purge is required for your user id.", title);
        return false;
    }
    if (PurgeDays() >= 1 && PurgeDays() <= maximumDays) return true;
    Refused("The purge interval must be between 1 and " + std::to_string(maximumDays) + " days inclusive.",
            title);
    return false;
}

std::int32_t XAmbitPurge::PurgeDays() const { return ParseWhole(days).value_or(0); }

void XAmbitPurge::SetDays(const std::string& text) {
    if (Assign(FieldPart::Value, days, text)) RaiseOwn(Changed);
}

bool XAmbitPurge::Click() {
    if (!BeginUserAct()) return false;
    Assign(FieldPart::Value, autoPurge, std::string(IsOn() ? "N" : "Y"));
    RaiseOwn(Changed);
    return true;
}

bool XAmbitPurge::Key(char32_t key) {
    if (!BeginUserAct()) return false;
    if (FilterKey(key) != 0) SetDays(TextAfterKey(days, key, maxLength));
    return true;
}

char32_t XAmbitPurge::FilterKey(char32_t key) {
    if (key == keyBackspace || (key >= U'0' && key <= U'9')) return key;
    Control().Beep.Raise(*this);
    return 0;
}

bool XAmbitPurge::EditDays(std::string_view edited) {
    if (!BeginUserAct()) return false;
    SetDays(TextAfterEdit(days, edited, maxLength));
    return true;
}

bool XAmbitPurge::PasteDays(std::string_view text) {
    if (!BeginUserAct()) return false;
    SetDays(CutToLength(text, maxLength));
    return true;
}

void XAmbitDownload::SetDownloadMode(const std::string& codeA) {
    if (Assign(FieldPart::Value, code, codeA)) RaiseOwn(Changed);
}

std::string_view XAmbitDownload::Text() const {
    for (const auto& entry : downloadModes)
        if (entry.code == code) return entry.text;
    return {};
}

bool XAmbitDownload::Pick(std::string_view text) {
    const auto* entry = std::find_if(downloadModes.begin(), downloadModes.end(),
                                     [text](const auto& e) { return e.text == text; });
    if (entry == downloadModes.end() || !BeginUserAct()) return false;
    SetDownloadMode(std::string(entry->code));
    return true;
}

}  // namespace NolSchedCtls::inline v1
