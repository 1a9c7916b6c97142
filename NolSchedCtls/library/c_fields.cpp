#include "NolSchedCtls/library/c_fields.h"

#include <array>

#include "NolSchedCtls/library/c_calls.h"
#include "NolSchedCtls/toolkit/acts.h"
#include "NolSchedCtls/toolkit/fields.h"

namespace NolSchedCtls::inline v1::C {

namespace {

std::string ShownText(const ViewField& /*anyOther*/) { return {}; }
std::string ShownText(const DropDownList& list) { return list.Text(); }
std::string ShownText(const TextBox& box) { return box.Text(); }
std::string ShownText(const TypedField& field) { return field.Text(); }
std::string ShownText(const XMarlet& picker) { return picker.Text(); }
std::string ShownText(const XAmbitPurge& purge) { return purge.DaysText(); }
std::string ShownText(const XAmbitDownload& download) { return std::string(download.Text()); }

std::string TwoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string Value(const ViewField& /*anyOther*/) { return {}; }
std::string Value(const CheckBox& box) { return std::to_string(box.Value()); }
std::string Value(const DropDownList& list) { return std::to_string(list.ListIndex()); }
std::string Value(const SSDateCombo& field) { return IsoDayText(field.DateValue()); }
std::string Value(const DTPicker& field) { return TwoDigits(field.Hour()) + ':' + TwoDigits(field.Minute()); }
std::string Value(const XAmbitPurge& purge) { return purge.IsOn() ? "1" : "0"; }
std::string Value(const XAmbitDownload& download) { return download.DownloadMode(); }

std::string Value(const XMarlet& picker) {
    return picker.Document() ? std::to_string(picker.Document()->Id) : std::string();
}

std::string YesNo(bool isSo) { return isSo ? "Y" : "N"; }
std::string Twips(float twips) { return std::to_string(static_cast<int>(twips)); }

struct Property {
    std::string_view name;
    std::string (*read)(const ViewField&);
};

constexpr std::array properties = {
    Property{"kind", KindName},
    Property{"caption", [](const ViewField& field) { return field.Caption(); }},
    Property{"text",
             [](const ViewField& field) {
                 return VisitField(field, [](const auto& kind) { return ShownText(kind); });
             }},
    Property{"value",
             [](const ViewField& field) {
                 return VisitField(field, [](const auto& kind) { return Value(kind); });
             }},
    Property{"visible", [](const ViewField& field) { return YesNo(field.IsShown()); }},
    Property{"enabled", [](const ViewField& field) { return YesNo(IsEnabled(field)); }},
    Property{"focused", [](const ViewField& field) { return YesNo(field.HasFocus()); }},
    Property{"frame",
             [](const ViewField& field) {
                 return field.Container() == nullptr ? std::string() : field.Container()->Name();
             }},
    Property{"refusal", [](const ViewField& field) { return field.Refusal(); }},
    Property{"left", [](const ViewField& field) { return Twips(field.Left()); }},
    Property{"width", [](const ViewField& field) { return Twips(field.Width()); }},
};

}  // namespace

std::string ReadProperty(const ViewField& field, std::string_view property) {
    for (const Property& known : properties)
        if (known.name == property) return known.read(field);
    throw CallError(NOLSCHED_BAD_NAME, "Fields have no property " + Quoted(property) + ".");
}

}  // namespace NolSchedCtls::inline v1::C
