#include "host/cli/field_rules.h"

#include <algorithm>
#include <utility>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/toolkit/acts.h"
#include "NolSchedCtls/toolkit/fields.h"

namespace NolSchedCtls {

namespace {

using Texts = std::vector<std::string>;

constexpr std::size_t mostEntries = 12;  // of a list that is tried: a longer one counts or dates

std::string OnOff(bool isOn) { return isOn ? "on" : "off"; }

// What a switch stands at; nothing for a kind that is none.
Texts ValueOf(const ViewField& /*anyOther*/) { return {}; }
Texts ValueOf(const CheckBox& box) { return {OnOff(box.Value() != 0)}; }
Texts ValueOf(const DropDownList& list) { return {list.Text()}; }
Texts ValueOf(const XAmbitPurge& purge) { return {OnOff(purge.IsOn())}; }
Texts ValueOf(const XAmbitDownload& download) { return {std::string(download.Text())}; }

bool TurnOver(auto& field, const std::string& text) {
    return ValueOf(field).front() == text || field.Click();
}

bool Set(ViewField& /*anyOther*/, const std::string& /*text*/) { return false; }
bool Set(CheckBox& box, const std::string& text) { return TurnOver(box, text); }
bool Set(DropDownList& list, const std::string& text) { return list.Pick(text); }
bool Set(XAmbitPurge& purge, const std::string& text) { return TurnOver(purge, text); }
bool Set(XAmbitDownload& download, const std::string& text) { return download.Pick(text); }

Texts ValueByName(const UserControl& tab, const std::string& name) {
    return VisitField(*tab.FindField(name), [](const auto& kind) { return ValueOf(kind); });
}

bool SetByName(const UserControl& tab, const std::string& name, const std::string& text) {
    return VisitField(*tab.FindField(name), [&text](auto& kind) { return Set(kind, text); });
}

// The values that a user could give it now.
Texts ValuesToTry(const UserControl& tab, const ViewField& field) {
    if (!field.IsUsable() || ValueByName(tab, field.Name()).empty()) return {};
    Texts values = OfferedBy(field);
    if (values.empty()) values = {OnOff(false), OnOff(true)};
    return values.size() > mostEntries ? Texts() : values;
}

std::map<std::string, Texts> UsableOf(const UserControl& tab) {
    std::map<std::string, Texts> usable;
    for (const ViewField* field : tab.Fields())
        if (field->IsUsable()) usable[field->Name()] = OfferedBy(*field);
    return usable;
}

// In the order in which the keys are met.
template <class Key, class Members>
using Groups = std::vector<std::pair<Key, Members>>;

template <class Key, class Members>
Members& GroupOf(Groups<Key, Members>& groups, const Key& key) {
    const auto found = std::ranges::find(groups, key, &std::pair<Key, Members>::first);
    return found != groups.end() ? found->second : groups.emplace_back(key, Members()).second;
}

// "is Hourly, Daily or Weekly"; "is not Once" where that is all but one.
std::string Among(Texts values, const Texts& all) {
    const auto isOther = [&](const std::string& value) {
        return std::ranges::find(values, value) == values.end();
    };
    if (values.size() > 1 && values.size() + 1 == all.size())
        return "is not " + *std::ranges::find_if(all, isOther);
    const std::string last = values.back();
    values.pop_back();
    return "is " + (values.empty() ? last : Joined(values) + " or " + last);
}

// `cboPeriod is "Once"`, `chkEndDate is off`.
std::string Standing(const UserControl& tab, const std::string& name) {
    const std::string value = ValueByName(tab, name).front();
    return name + " is " + (OfferedBy(*tab.FindField(name)).empty() ? value : Quoted(value));
}

template <class T>
std::vector<T> With(std::vector<T> parts, T part) {
    parts.push_back(std::move(part));
    return parts;
}

}  // namespace

FieldRules::FieldRules(Workspace& workspaceA, std::string_view tabNameA)
    : workspace(workspaceA), tabName(tabNameA) {
    while (!Explore({}, 0)) states.clear();
}

// A fresh session for each state: what was done before in a tab may tell in it.
std::unique_ptr<EntrySession> FieldRules::Replay(const std::vector<Act>& acts) const {
    const Workspace::Silence silence(workspace);
    auto session = std::make_unique<EntrySession>(workspace, EntrySession::NewEntry{});
    session->Load();
    for (const auto& [name, text] : acts) SetByName(*session->FindPage(tabName)->tab, name, text);
    return session;
}

// False where it has come upon a further switch: then all is to be explored anew.
bool FieldRules::Explore(const std::vector<Act>& acts, std::size_t next) {
    const auto session = Replay(acts);
    const UserControl& tab = *session->FindPage(tabName)->tab;
    if (next == switches.size()) {
        states.push_back({ValuesOf(tab), UsableOf(tab)});
        return !FindSwitch(tab);
    }
    const std::string name = switches[next];
    const Texts values = ValuesToTry(tab, *tab.FindField(name));
    if (values.empty()) return Explore(acts, next + 1);
    return std::ranges::all_of(values, [&](const std::string& value) {
        return Explore(With(acts, {name, value}), next + 1);
    });
}

bool FieldRules::FindSwitch(const UserControl& tab) {
    const auto usable = UsableOf(tab);
    const auto nameOf = [](const auto& field) { return field.first; };
    const auto changes = [&](const ViewField& field) {
        return std::ranges::any_of(ValuesToTry(tab, field), [&](const std::string& value) {
            SetByName(tab, field.Name(), value);
            return !std::ranges::equal(usable, UsableOf(tab), {}, nameOf, nameOf);
        });
    };
    for (const ViewField* field : tab.Fields()) {
        if (std::ranges::find(switches, field->Name()) != switches.end() || !changes(*field)) continue;
        switches.push_back(field->Name());
        return true;
    }
    return false;
}

Texts FieldRules::ValuesOf(const UserControl& tab) const {
    Texts values;
    for (const auto& name : switches) values.push_back(ValueByName(tab, name).front());
    return values;
}

// Every one of the switches alone, every two, ...
std::vector<FieldRules::Choice> FieldRules::Choices() const {
    std::vector<Choice> choices = {{}};
    for (std::size_t at = 0; at < choices.size(); ++at) {
        const std::size_t first = choices[at].empty() ? 0 : choices[at].back() + 1;
        for (std::size_t next = first; next < switches.size(); ++next)
            choices.push_back(With(choices[at], next));
    }
    return choices;
}

// Whether the values of those switches tell if the field is usable.
bool FieldRules::IsDecided(const std::string& field, const Choice& choice) const {
    std::map<Texts, bool> verdicts;
    return std::ranges::all_of(states, [&](const State& state) {
        Texts values;
        for (const std::size_t number : choice) values.push_back(state.values[number]);
        const bool isUsable = state.usable.contains(field);
        return verdicts.try_emplace(values, isUsable).first->second == isUsable;
    });
}

Json FieldRules::Condition(const std::string& field) const {
    States all;
    for (const State& state : states) all.push_back(&state);
    const auto choices = Choices();
    const auto choice =
        std::ranges::find_if(choices, [&](const Choice& tried) { return IsDecided(field, tried); });
    const auto condition = Condition(field, all, choice == choices.end() ? choices.back() : *choice);
    if (!condition) return "never";
    return condition->empty() ? Json(nullptr) : Json(*condition);
}

// Empty for always, nothing for never.
std::optional<std::string> FieldRules::Condition(const std::string& field, const States& among,
                                                 std::span<const std::size_t> choice) const {
    const auto isUsable = [&field](const State* state) { return state->usable.contains(field); };
    if (choice.empty()) return std::ranges::any_of(among, isUsable) ? std::optional("") : std::nullopt;
    Groups<std::string, States> byValue;
    for (const State* state : among) GroupOf(byValue, state->values[choice.front()]).push_back(state);
    Groups<std::optional<std::string>, Texts> byRest;
    Texts all;
    for (const auto& [value, ofValue] : byValue) {
        GroupOf(byRest, Condition(field, ofValue, choice.subspan(1))).push_back(value);
        all.push_back(value);
    }
    Texts told;
    for (const auto& [rest, values] : byRest) {
        if (!rest) continue;
        const std::string own =
            values.size() == all.size() ? "" : switches[choice.front()] + ' ' + Among(values, all);
        told.push_back(own + (own.empty() || rest->empty() ? "" : " and ") + *rest);
    }
    return told.empty() ? std::nullopt : std::optional(Joined(told, std::identity(), ", or "));
}

std::vector<Json> FieldRules::Told() const {
    std::vector<Json> told;
    const auto session = Replay({});
    for (const ViewField* field : session->FindPage(tabName)->tab->Fields())
        told.push_back({{"tab", tabName},
                        {"name", field->Name()},
                        {"kind", KindName(*field)},
                        {"caption", field->PlainCaption()},
                        {"offers", Offers(field->Name())},
                        {"while", Condition(field->Name())}});
    return told;
}

// All that it offers in any state, in the order in which it is met.
Texts FieldRules::Offers(const std::string& field) const {
    Texts offers;
    for (const State& state : states) {
        const auto found = state.usable.find(field);
        if (found == state.usable.end()) continue;
        for (const auto& offer : found->second)
            if (std::ranges::find(offers, offer) == offers.end()) offers.push_back(offer);
    }
    return offers;
}

// No switch at all stands in the way of a field that never is usable.
std::string FieldRules::Obstacle(const UserControl& tab, const std::string& field) const {
    const Texts values = ValuesOf(tab);
    const auto isUsable = [&](const State& state) { return state.usable.contains(field); };
    for (const Choice& choice : Choices()) {
        const auto agrees = [&](const State& state) {
            return std::ranges::all_of(choice, [&](std::size_t i) { return state.values[i] == values[i]; });
        };
        const auto agreesAndIsUsable = [&](const State& state) { return agrees(state) && isUsable(state); };
        if (std::ranges::none_of(states, agrees) || std::ranges::any_of(states, agreesAndIsUsable)) continue;
        return Joined(
            choice, [&](std::size_t i) { return Standing(tab, switches[i]); }, " and ");
    }
    return {};
}

}  // namespace NolSchedCtls
