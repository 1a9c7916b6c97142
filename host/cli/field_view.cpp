#include "host/cli/field_view.h"

#include "NolSchedCtls/toolkit/fields.h"

namespace NolSchedCtls {

namespace {

struct FieldView {
    const char* kind;
    Json shown;
};

// Whole twips as whole numbers.
Json Twips(float twips) {
    const auto whole = static_cast<int>(twips);
    return static_cast<float>(whole) == twips ? Json(whole) : Json(twips);
}

FieldView View(const CheckBox& box) {
    return {"check box", {{"value", box.Value()}, {"caption", box.Caption()}}};
}

FieldView View(const DropDownList& list) {
    return {"list",
            {{"text", list.Text()},
             {"index", list.ListIndex()},
             {"entries", list.Entries()},
             {"left", Twips(list.Left())},
             {"width", Twips(list.Width())}}};
}

FieldView View(const TextBox& box) { return {"text box", {{"text", box.Text()}}}; }

FieldView View(const Label& label) {
    return {"label",
            {{"caption", label.Caption()}, {"left", Twips(label.Left())}, {"width", Twips(label.Width())}}};
}

FieldView View(const Frame& frame) { return {"frame", {{"caption", frame.Caption()}}}; }

FieldView View(const SSDateCombo& field) {
    return {
        "date",
        {{"text", field.Text()}, {"date", DayText(field.DateValue())}, {"format", field.DisplayFormat()}}};
}

FieldView View(const DTPicker& field) {
    return {"time", {{"hour", field.Hour()}, {"minute", field.Minute()}}};
}

FieldView View(const XAmbitPurge& purge) {
    return {"purge",
            {{"value", purge.IsOn() ? 1 : 0}, {"days", purge.PurgeDays()}, {"maximum", purge.MaximumDays()}}};
}

using Texts = std::vector<std::string>;

Texts Offered(const ViewField& /*anyOther*/) { return {}; }
Texts Offered(const DropDownList& list) { return list.Entries(); }

Texts Offered(const SSDateCombo& field) {
    return {DayText(SSDateCombo::MinDate()) + " to " + DayText(field.MaxDate())};
}

Texts Offered(const DTPicker& /*field*/) { return {"00:00 to 23:59"}; }

Texts Offered(const XMarlet& picker) {
    Texts names;
    for (const auto& document : picker.Entries()) names.push_back(document->Name);
    return names;
}

Texts Offered(const XAmbitDownload& /*download*/) {
    Texts texts;
    for (const auto& mode : downloadModes) texts.emplace_back(mode.text);
    return texts;
}

FieldView View(const XAmbitDownload& download) {
    return {"download", {{"text", download.Text()}, {"entries", Offered(download)}}};
}

FieldView View(const XMarlet& picker) {
    return {"picker",
            {{"text", picker.Text()},
             {"id", picker.Document() ? Json(picker.Document()->Id) : Json(nullptr)},
             {"entries", Offered(picker)}}};
}

FieldView ViewOf(const ViewField& field) {
    return VisitField(field, [](const auto& kind) { return View(kind); });
}

bool IsActedOn(const ViewField& /*anyOther*/) { return true; }
bool IsActedOn(const Label& /*label*/) { return false; }
bool IsActedOn(const Frame& /*frame*/) { return false; }

bool IsEnabled(const ViewField& field) {
    return field.Enabled() && (field.Container() == nullptr || IsEnabled(*field.Container()));
}

}  // namespace

std::string DayText(DateTime date) { return IsoText(date).substr(0, 10); }
std::string KindName(const ViewField& field) { return ViewOf(field).kind; }

Texts OfferedBy(const ViewField& field) {
    return VisitField(field, [](const auto& kind) { return Offered(kind); });
}

bool IsForActs(const ViewField& field) {
    return VisitField(field, [](const auto& kind) { return IsActedOn(kind); });
}

Json Describe(const ViewField& field, bool withPlace) {
    const FieldView view = ViewOf(field);
    Json described = {{"name", field.Name()},
                      {"kind", view.kind},
                      {"visible", field.IsShown()},
                      {"enabled", IsEnabled(field)}};
    described.update(view.shown);
    if (withPlace) return described;
    described.erase("left");
    described.erase("width");
    return described;
}

}  // namespace NolSchedCtls
