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

// Nothing if a kind of field knows no such act, else whether the field did it: not what it does not offer.
using Done = std::optional<bool>;

// The keys that make the text; a byte that is no UTF-8 is the key U+FFFD.
std::u32string KeysOf(const std::string& text) { return utf8::utf8to32(utf8::replace_invalid(text)); }

// Keys into an emptied field.
bool Type(auto& field, bool emptied, const std::string& text) {
    if (emptied)
        for (const char32_t key : KeysOf(text)) field.Key(key);
    return emptied;
}

bool PickDate(SSDateCombo& field, const std::string& text) {
    const DateTime date = ParseIso(text);
    return text.size() == DayText(date).size() && field.PickDate(date);
}

bool PickTime(DTPicker& field, const std::string& text) {
    const DateTimeParts parts = SplitDateTime(ParseIso("1899-12-30T" + text));
    return parts.second == 0 && field.PickTime(parts.hour, parts.minute);
}

Done Act(CheckBox& box, Verb verb, const std::string& /*text*/) {
    return verb == Verb::Click ? Done(box.Click()) : Done();
}

Done Act(DropDownList& list, Verb verb, const std::string& text) {
    return verb == Verb::Pick ? Done(list.Pick(text == "\"\"" ? "" : text)) : Done();
}

Done Act(TextBox& box, Verb verb, const std::string& text) {
    if (verb == Verb::Type) return Type(box, box.Paste(""), text);
    return verb == Verb::Paste ? Done(box.Paste(text)) : Done();
}

Done Act(Label& /*label*/, Verb /*verb*/, const std::string& /*text*/) { return {}; }
Done Act(Frame& /*frame*/, Verb /*verb*/, const std::string& /*text*/) { return {}; }

Done Act(SSDateCombo& field, Verb verb, const std::string& text) {
    return verb == Verb::Date ? Done(PickDate(field, text)) : Done();
}

Done Act(DTPicker& field, Verb verb, const std::string& text) {
    return verb == Verb::Time ? Done(PickTime(field, text)) : Done();
}

Done Act(XMarlet& picker, Verb verb, const std::string& text) {
    if (verb == Verb::Pick) return picker.Pick(text == "\"\"" ? "" : text);
    return verb == Verb::Type || verb == Verb::Paste ? Done(picker.Paste(text)) : Done();
}

Done Act(XAmbitPurge& purge, Verb verb, const std::string& text) {
    if (verb == Verb::Click) return purge.Click();
    if (verb == Verb::Type) return Type(purge, purge.PasteDays(""), text);
    return verb == Verb::Paste ? Done(purge.PasteDays(text)) : Done();
}

Done Act(XAmbitDownload& download, Verb verb, const std::string& text) {
    return verb == Verb::Pick ? Done(download.Pick(text)) : Done();
}

std::string Unusable(const Target& target) {
    const std::string told = target.name + (target.field.IsShown() ? " is disabled" : " is hidden");
    std::string obstacle;
    try {
        obstacle = target.obstacle();
    } catch (const NolSchedError&) {  // the line is refused all the same
    }
    return told + (obstacle.empty() ? "" : " while ") + obstacle + ".";
}

std::string OfferText(const ViewField& field) {
    const auto offered = OfferedBy(field);
    return offered.empty() ? "nothing" : Joined(offered, Quoted);
}

}  // namespace

std::optional<Verb> VerbNamed(std::string_view word) {
    const auto found = std::find(verbNames.begin(), verbNames.end(), word);
    if (found == verbNames.end()) return {};
    return static_cast<Verb>(found - verbNames.begin());
}

// A text that the act cannot read is as little offered as one out of bounds.
void DoAct(Verb verb, const Target& target, const std::string& text) {
    ViewField& field = target.field;
    if (!field.IsUsable()) throw UsageError(Unusable(target));
    const Done done = Explained<UsageError>(
        [&] { return VisitField(field, [&](auto& kind) { return Act(kind, verb, text); }); },
        [&] { return target.name + ": "; });
    if (!done)
        throw UsageError(target.name + " is a " + KindName(field) + ", which one cannot " +
                         std::string(verbNames.at(static_cast<std::size_t>(verb))) + ".");
    if (!*done)
        throw UsageError(target.name + " does not offer " + Quoted(text) + "; it offers " + OfferText(field) +
                         ".");
}

}  // namespace NolSchedCtls
