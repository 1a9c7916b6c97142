#include "host/cli/acts.h"

#include <QList>
#include <QString>
#include <array>
#include <vector>

#include "NolSchedCtls/toolkit/check_box.h"
#include "NolSchedCtls/toolkit/drop_down_list.h"
#include "NolSchedCtls/toolkit/dt_picker.h"
#include "NolSchedCtls/toolkit/ss_date_combo.h"
#include "NolSchedCtls/toolkit/text_box.h"
#include "NolSchedCtls/toolkit/x_ambit.h"
#include "NolSchedCtls/toolkit/x_marlet.h"

namespace NolSchedCtls {

namespace {

using Offered = std::vector<std::string>;

Offered EntriesOf(const XMarlet& picker) {
    Offered offered;
    for (const auto& document : picker.Entries()) offered.push_back(document->Name);
    return offered;
}

Offered EntriesOf(const DropDownList& list) { return list.Entries(); }

std::string DayText(DateTime date) { return IsoText(date).substr(0, 10); }

Offered EntriesOf(const SSDateCombo& field) {
    return {DayText(SSDateCombo::MinDate()) + " to " + DayText(field.MaxDate())};
}

Offered EntriesOf(const DTPicker&) { return {"00:00 to 23:59"}; }

Offered EntriesOf(const XAmbitDownload&) {
    Offered offered;
    for (const auto& mode : downloadModes) offered.emplace_back(mode.text);
    return offered;
}

// The keys that make the text; a byte that is no UTF-8 is the key U+FFFD.
std::u32string KeysOf(const std::string& text) {
    std::u32string keys;
    for (const uint key : QString::fromStdString(text).toUcs4()) keys.push_back(key);
    return keys;
}

// Acts by kind of field. They answer false for what the field does not offer; a field out of reach was
// refused before.
template <class Box>
bool Click(Box& box, const std::string& /*text*/) {
    return box.Click();
}

template <class List>
bool Pick(List& list, const std::string& text) {
    return list.Pick(text == "\"\"" ? "" : text);
}

bool PickDate(SSDateCombo& field, const std::string& text) {
    const DateTime date = ParseIso(text);
    return text.size() == DayText(date).size() && field.PickDate(date);
}

bool PickTime(DTPicker& field, const std::string& text) {
    const DateTimeParts parts = SplitDateTime(ParseIso("1899-12-30T" + text));
    return parts.second == 0 && field.PickTime(parts.hour, parts.minute);
}

bool Paste(TextBox& box, const std::string& text) { return box.Paste(text); }
bool Paste(XMarlet& picker, const std::string& text) { return picker.Paste(text); }
bool Paste(XAmbitPurge& purge, const std::string& text) { return purge.PasteDays(text); }

bool Type(XMarlet& picker, const std::string& text) { return picker.Paste(text); }

template <class Box>
bool Type(Box& box, const std::string& text) {
    if (!Paste(box, "")) return false;
    for (const char32_t key : KeysOf(text)) box.Key(key);
    return true;
}

// Nothing for a field of another kind, else whether the field did the act.
using Act = std::optional<bool> (*)(ViewField&, const std::string&);

template <class Kind, auto act>
std::optional<bool> On(ViewField& field, const std::string& text) {
    auto* const kind = dynamic_cast<Kind*>(&field);
    if (kind == nullptr) return {};
    return act(*kind, text);
}

template <class Box>
constexpr Act TypeInto = On<Box, static_cast<bool (*)(Box&, const std::string&)>(Type)>;
template <class Box>
constexpr Act PasteInto = On<Box, static_cast<bool (*)(Box&, const std::string&)>(Paste)>;

struct Verb {
    std::string_view name;
    std::array<Act, 3> acts;
};

constexpr std::array verbs = {
    Verb{"click", {On<CheckBox, Click<CheckBox>>, On<XAmbitPurge, Click<XAmbitPurge>>}},
    Verb{"date", {On<SSDateCombo, PickDate>}},
    Verb{"time", {On<DTPicker, PickTime>}},
    Verb{"pick",
         {On<DropDownList, Pick<DropDownList>>, On<XMarlet, Pick<XMarlet>>,
          On<XAmbitDownload, Pick<XAmbitDownload>>}},
    Verb{"type", {TypeInto<TextBox>, TypeInto<XMarlet>, TypeInto<XAmbitPurge>}},
    Verb{"paste", {PasteInto<TextBox>, PasteInto<XMarlet>, PasteInto<XAmbitPurge>}},
};

void ShowCheckBox(const CheckBox& box, Json& shown) { shown["value"] = box.Value(); }

void ShowText(const TextBox& box, Json& shown) { shown["text"] = box.Text(); }

// Whole twips as whole numbers.
Json Twips(float twips) {
    const auto whole = static_cast<int>(twips);
    return static_cast<float>(whole) == twips ? Json(whole) : Json(twips);
}

void ShowLabel(const Label& label, Json& shown) {
    shown["caption"] = label.Caption();
    shown["left"] = Twips(label.Left());
    shown["width"] = Twips(label.Width());
}

void ShowFrame(const Frame& frame, Json& shown) { shown["caption"] = frame.Caption(); }

void ShowList(const DropDownList& list, Json& shown) {
    shown["text"] = list.Text();
    shown["index"] = list.ListIndex();
    shown["entries"] = list.Entries();
    shown["left"] = Twips(list.Left());
    shown["width"] = Twips(list.Width());
}

void ShowDate(const SSDateCombo& field, Json& shown) {
    shown["text"] = field.Text();
    shown["date"] = DayText(field.DateValue());
    shown["format"] = field.DisplayFormat();
}

void ShowTime(const DTPicker& field, Json& shown) {
    shown["hour"] = field.Hour();
    shown["minute"] = field.Minute();
}

void ShowPicker(const XMarlet& picker, Json& shown) {
    shown["text"] = picker.Text();
    shown["id"] = picker.Document() ? Json(picker.Document()->Id) : Json(nullptr);
}

void ShowPurge(const XAmbitPurge& purge, Json& shown) {
    shown["value"] = purge.IsOn() ? 1 : 0;
    shown["days"] = purge.PurgeDays();
    shown["maximum"] = purge.MaximumDays();
}

void ShowDownload(const XAmbitDownload& download, Json& shown) {
    shown["text"] = download.Text();
    shown["entries"] = EntriesOf(download);
}

template <class Kind, auto show>
bool ShowAs(const ViewField& field, Json& shown) {
    const auto* const kind = dynamic_cast<const Kind*>(&field);
    if (kind != nullptr) show(*kind, shown);
    return kind != nullptr;
}

struct KindView {
    const char* name;
    bool (*show)(const ViewField&, Json&);
    Offered (*offered)(const ViewField&);
};

Offered Nothing(const ViewField&) { return {}; }

template <class Kind>
Offered Entries(const ViewField& field) {
    return EntriesOf(dynamic_cast<const Kind&>(field));
}

constexpr std::array kindViews = {
    KindView{"check box", ShowAs<CheckBox, ShowCheckBox>, Nothing},
    KindView{"list", ShowAs<DropDownList, ShowList>, Entries<DropDownList>},
    KindView{"date", ShowAs<SSDateCombo, ShowDate>, Entries<SSDateCombo>},
    KindView{"time", ShowAs<DTPicker, ShowTime>, Entries<DTPicker>},
    KindView{"label", ShowAs<Label, ShowLabel>, Nothing},
    KindView{"text box", ShowAs<TextBox, ShowText>, Nothing},
    KindView{"picker", ShowAs<XMarlet, ShowPicker>, Entries<XMarlet>},
    KindView{"frame", ShowAs<Frame, ShowFrame>, Nothing},
    KindView{"purge", ShowAs<XAmbitPurge, ShowPurge>, Nothing},
    KindView{"download", ShowAs<XAmbitDownload, ShowDownload>, Entries<XAmbitDownload>},
};

const KindView& ViewOf(const ViewField& field, Json& shown) {
    for (const auto& view : kindViews)
        if (view.show(field, shown)) return view;
    throw UsageError("The field " + field.Name() + " is of no known kind.");
}

bool IsEnabled(const ViewField& field) {
    return field.Enabled() && (field.Container() == nullptr || IsEnabled(*field.Container()));
}

std::string OfferedText(const ViewField& field) {
    Json shown;
    std::string text;
    for (const auto& entry : ViewOf(field, shown).offered(field))
        text += (text.empty() ? "" : ", ") + Quoted(entry);
    return text.empty() ? "nothing" : text;
}

// A text that the act cannot read is as little offered as one out of bounds.
std::optional<bool> Carried(Act act, const Target& target, const std::string& text) {
    try {
        return act(target.field, text);
    } catch (const NolSchedError& error) {
        throw UsageError(target.sName + ": " + error.what());
    }
}

const Verb* FindVerb(std::string_view name) {
    for (const auto& verb : verbs)
        if (verb.name == name) return &verb;
    return nullptr;
}

}  // namespace

bool IsAct(std::string_view verb) { return FindVerb(verb) != nullptr; }

void DoAct(std::string_view name, const Target& target, const std::string& text) {
    ViewField& field = target.field;
    if (!field.IsUsable())
        throw UsageError(target.sName + (field.IsShown() ? " is disabled." : " is hidden."));
    for (const Act act : FindVerb(name)->acts) {
        const auto done = act == nullptr ? std::nullopt : Carried(act, target, text);
        if (!done) continue;
        if (*done) return;
        throw UsageError(target.sName + " does not offer " + Quoted(text) + "; it offers " +
                         OfferedText(field) + ".");
    }
    Json shown;
    throw UsageError(target.sName + " is a " + ViewOf(field, shown).name + ", which one cannot " +
                     std::string(name) + ".");
}

Json Describe(const ViewField& field) {
    Json shown;
    const KindView& view = ViewOf(field, shown);
    Json described = {{"name", field.Name()},
                      {"kind", view.name},
                      {"visible", field.IsShown()},
                      {"enabled", IsEnabled(field)}};
    described.update(shown);
    return described;
}

}  // namespace NolSchedCtls
