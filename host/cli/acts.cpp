#include "host/cli/acts.h"

#include <utf8.h>

#include <array>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/toolkit/fields.h"
#include "host/cli/field_view.h"

namespace NolSchedCtls {

namespace {

// In the order of Verb.
constexpr std::array<std::string_view, 6> verbNames = {"click", "pick", "type", "paste", "date", "time"};

const std::string& ContentOf(const TextBox& box) { return box.Text(); }
const std::string& ContentOf(const XAmbitPurge& purge) { return purge.DaysText(); }
bool Paste(TextBox& box, const std::string& text) { return box.Paste(text); }
bool Paste(XAmbitPurge& purge, const std::string& text) { return purge.PasteDays(text); }

// The keys that make the text; a byte that is no UTF-8 is the key U+FFFD.
std::u32string KeysOf(const std::string& text) { return utf8::utf8to32(utf8::replace_invalid(text)); }

// Keys into an emptied field. A key that changes nothing was refused, by the filter or the length: what was
// typed before it goes again.
bool Type(auto& field, const std::string& text) {
    const std::string former = ContentOf(field);
    if (!Paste(field, "")) return false;
    for (const char32_t key : KeysOf(text)) {
        const std::string before = ContentOf(field);
        field.Key(key);
        if (ContentOf(field) != before) continue;
        Paste(field, former);
        throw UsageError("the key " + Quoted(utf8::utf32to8(std::u32string(1, key))) + " of " + Quoted(text) +
                         " is refused.");
    }
    return true;
}

bool PasteWhole(auto& field, const std::string& text) {
    const std::string former = ContentOf(field);
    if (!Paste(field, text)) return false;
    if (ContentOf(field) == text) return true;
    Paste(field, former);
    throw UsageError(Quoted(text) + " is too long.");
}

// A text that the field refuses leaves it as it was.
bool TypeWhole(TypedField& field, const std::string& text) {
    if (field.TypeText(text)) return true;
    const std::string refusal = field.Refusal();
    field.DropRefusedText();
    throw NolSchedError(refusal);
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

std::string Unusable(const Target& target) {
    const std::string told = target.field.IsShown() ? " is disabled" : " is hidden";
    std::string obstacle;
    try {
        if (target.obstacle) obstacle = target.obstacle();
    } catch (const NolSchedError&) {  // the line is refused all the same
    }
    return told + (obstacle.empty() ? "" : " while ") + obstacle + ".";
}

std::string OfferText(const std::string& text, const std::vector<std::string>& offered) {
    if (const auto nearest = NearestOf(text, offered)) return "; did you mean " + Quoted(*nearest) + "?";
    return "; it offers " + (offered.empty() ? "nothing" : Joined(offered, Quoted)) + ".";
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

// A text that the act cannot read is as little offered as one out of bounds.
void DoAct(Verb verb, const Target& target, const std::string& text) {
    ViewField& field = target.field;
    const auto refuse = [&](const std::string& told) {
        throw UsageError(target.name + told, {target.name, text, OfferedBy(field)});
    };
    if (!field.IsUsable()) refuse(Unusable(target));
    if (!IsKnown(verb, field))
        refuse(" is a " + KindName(field) + ", which one cannot " +
               std::string(verbNames.at(static_cast<std::size_t>(verb))) + ".");
    bool isDone = false;
    try {
        isDone = VisitField(field, [&](auto& kind) { return Act(kind, verb, text); });
    } catch (const NolSchedError& error) {
        refuse(std::string(": ") + error.what());
    }
    if (!isDone) refuse(" does not offer " + Quoted(text) + OfferText(text, OfferedBy(field)));
}

}  // namespace NolSchedCtls
