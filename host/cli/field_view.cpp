#include "host/cli/field_view.h"

#include "NolSchedCtls/toolkit/acts.h"
#include "NolSchedCtls/toolkit/fields.h"

namespace NolSchedCtls {

namespace {

// Whole twips as whole numbers.
Json Twips(float twips) {
    const auto whole = static_cast<int>(twips);
    return static_cast<float>(whole) == twips ? Json(whole) : Json(twips);
}

Json View(const CheckBox& box) { return {{"value", box.Value()}, {"caption", box.Caption()}}; }

Json View(const DropDownList& list) {
    return {{"text", list.Text()},
            {"index", list.ListIndex()},
            {"entries", list.Entries()},
            {"left", Twips(list.Left())},
            {"width", Twips(list.Width())}};
}

Json View(const TextBox& box) { return Json::object({{"text", box.Text()}}); }

Json View(const Label& label) {
    return {{"caption", label.Caption()}, {"left", Twips(label.Left())}, {"width", Twips(label.Width())}};
}

Json View(const Frame& frame) { return Json::object({{"caption", frame.Caption()}}); }

Json View(const SSDateCombo& field) {
    return {
        {"text", field.Text()}, {"date", IsoDayText(field.DateValue())}, {"format", field.DisplayFormat()}};
}

Json View(const DTPicker& field) { return {{"hour", field.Hour()}, {"minute", field.Minute()}}; }

Json View(const XAmbitPurge& purge) {
    return {{"value", purge.IsOn() ? 1 : 0}, {"days", purge.PurgeDays()}, {"maximum", purge.MaximumDays()}};
}

Json View(const XAmbitDownload& download) {
    return {{"text", download.Text()}, {"entries", OfferedBy(download)}};
}

Json View(const XMarlet& picker) {
    return {{"text", picker.Text()},
            {"id", picker.Document() ? Json(picker.Document()->Id) : Json(nullptr)},
            {"entries", OfferedBy(picker)}};
}

bool IsActedOn(const ViewField& /*anyOther*/) { return true; }
bool IsActedOn(const Label& /*label*/) { return false; }
bool IsActedOn(const Frame& /*frame*/) { return false; }

}  // namespace

bool IsForActs(const ViewField& field) {
    return VisitField(field, [](const auto& kind) { return IsActedOn(kind); });
}

Json Describe(const ViewField& field, bool withPlace) {
    Json described = {{"name", field.Name()},
                      {"kind", KindName(field)},
                      {"visible", field.IsShown()},
                      {"enabled", IsEnabled(field)}};
    described.update(VisitField(field, [](const auto& kind) { return View(kind); }));
    if (withPlace) return described;
    described.erase("left");
    described.erase("width");
    return described;
}

}  // namespace NolSchedCtls
