#include "NolSchedCtls/toolkit/acts.h"

#include <algorithm>
#include <array>

#include "NolSchedCtls/base/date_time.h"
#include "NolSchedCtls/base/utf8.h"
#include "NolSchedCtls/toolkit/fields.h"
#include "NolSchedCtls/toolkit/text_edit.h"

namespace NolSchedCtls::inline v1 {

namespace {

// In the order of Verb.
constexpr std::array<std::string_view, 6> verbNames = {"click", "pick", "type", "paste", "date", "time"};

// In the order of FieldKind.
constexpr std::array kindNames = {"check box", "list", "text box", "label", "frame",
                                  "date",      "time", "picker",   "purge", "download"};

bool Paste(TextBox& box, std::string_view text) { return box.Paste(text); }
bool Paste(XAmbitPurge& purge, std::string_view text) { return purge.PasteDays(text); }

std::size_t LimitOf(const TextBox& box) { return box.MaxLength(); }
std::size_t LimitOf(const XAmbitPurge& /*purge*/) { return XAmbitPurge::maxLength; }

// The text's keys. A byte that is no UTF-8 is the key U+FFFD.
std::vector<Character> KeysOf(std::string_view text) {
    std::vector<Character> keys;
    for (; !text.empty(); text.remove_prefix(keys.back().bytes)) keys.push_back(FirstCharacter(text));
    return keys;
}

// Keys into an emptied field, once all of them have passed the filter and the length.
bool Type(auto& field, const std::string& text) {
    const std::vector<Character> keys = KeysOf(text);
    std::string typed;
    std::size_t at = 0;
    for (const Character& key : keys) {
        const char32_t passed = field.FilterKey(key.code);
        std::string longer = passed == 0 ? typed : TextAfterKey(typed, passed, LimitOf(field));
        if (longer == typed) {
            const std::string shown = key.IsBroken() ? "\xEF\xBF\xBD" : text.substr(at, key.bytes);
            throw RefusedText("the key " + Quoted(shown) + " of " + Quoted(text) + " is refused.");
        }
        typed = std::move(longer);
        at += key.bytes;
    }
    if (!Paste(field, "")) return false;
    for (const Character& key : keys) field.Key(key.code);
    return true;
}

bool PasteWhole(auto& field, const std::string& text) {
    if (CutToLength(text, LimitOf(field)) != text) throw RefusedText(Quoted(text) + " is too long.");
    return Paste(field, text);
}

// A text that the field refuses leaves it as it was.
bool TypeWhole(TypedField& field, const std::string& text) {
    if (field.TypeText(text)) return true;
    const std::string refusal = field.Refusal();
    field.DropRefusedText();
    throw RefusedText(refusal);
}

using Verbs = std::vector<Verb>;

Verbs VerbsOf(const ViewField& /*shows only*/) { return {}; }
Verbs VerbsOf(const CheckBox& /*box*/) { return {Verb::Click}; }
Verbs VerbsOf(const DropDownList& /*list*/) { return {Verb::Pick}; }
Verbs VerbsOf(const TextBox& /*box*/) { return {Verb::Type, Verb::Paste}; }
Verbs VerbsOf(const SSDateCombo& /*field*/) { return {Verb::Date}; }
Verbs VerbsOf(const DTPicker& /*field*/) { return {Verb::Time}; }
Verbs VerbsOf(const XMarlet& /*picker*/) { return {Verb::Pick, Verb::Type, Verb::Paste}; }
Verbs VerbsOf(const XAmbitPurge& /*purge*/) { return {Verb::Click, Verb::Type, Verb::Paste}; }
Verbs VerbsOf(const XAmbitDownload& /*download*/) { return {Verb::Pick}; }

// Each is given one of its verbs. False: the field does not offer it.
bool Act(CheckBox& box, Verb /*click*/, const std::string& /*text*/) { return box.Click(); }

bool Act(DropDownList& list, Verb /*pick*/, const std::string& text) { return list.Pick(text); }

bool Act(TextBox& box, Verb verb, const std::string& text) {
    return verb == Verb::Type ? Type(box, text) : PasteWhole(box, text);
}

bool Act(ViewField& /*shows only*/, Verb /*none*/, const std::string& /*text*/) { return false; }
bool Act(SSDateCombo& field, Verb /*date*/, const std::string& text) { return TypeWhole(field, text); }
bool Act(DTPicker& field, Verb /*time*/, const std::string& text) { return TypeWhole(field, text); }

bool Act(XMarlet& picker, Verb verb, const std::string& text) {
    return verb == Verb::Pick ? picker.Pick(text) : picker.Paste(text);
}

bool Act(XAmbitPurge& purge, Verb verb, const std::string& text) {
    if (verb == Verb::Click) return purge.Click();
    return verb == Verb::Type ? Type(purge, text) : PasteWhole(purge, text);
}

bool Act(XAmbitDownload& download, Verb /*pick*/, const std::string& text) { return download.Pick(text); }

using Texts = std::vector<std::string>;

Texts Offered(const ViewField& /*anyOther*/) { return {}; }
Texts Offered(const DropDownList& list) { return list.Entries(); }

Texts Offered(const SSDateCombo& field) {
    return {IsoDayText(SSDateCombo::MinDate()) + " to " + IsoDayText(field.MaxDate())};
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

}  // namespace

std::optional<Verb> VerbNamed(std::string_view word) {
    const auto found = std::find(verbNames.begin(), verbNames.end(), word);
    if (found == verbNames.end()) return {};
    return static_cast<Verb>(found - verbNames.begin());
}

bool IsKnown(Verb verb, const ViewField& field) {
    const Verbs verbs = VisitField(field, [](const auto& kind) { return VerbsOf(kind); });
    return std::find(verbs.begin(), verbs.end(), verb) != verbs.end();
}

std::string ObstacleTo(Verb verb, const ViewField& field) {
    if (!field.IsShown()) return " is hidden";
    if (!field.IsUsable()) return " is disabled";
    if (IsKnown(verb, field)) return {};
    return " is a " + KindName(field) + ", which one cannot " +
           std::string(verbNames.at(static_cast<std::size_t>(verb)));
}

bool DoAct(Verb verb, ViewField& field, const std::string& text) {
    return VisitField(field, [&](auto& kind) { return Act(kind, verb, text); });
}

std::string KindName(const ViewField& field) {
    return kindNames.at(const_cast<ViewField&>(field).Kind().index());
}

Texts OfferedBy(const ViewField& field) {
    return VisitField(field, [](const auto& kind) { return Offered(kind); });
}

bool IsEnabled(const ViewField& field) {
    return field.Enabled() && (field.Container() == nullptr || IsEnabled(*field.Container()));
}

}  // namespace NolSchedCtls::inline v1
