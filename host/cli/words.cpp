#include "host/cli/words.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/tabs/schedule/exclusions.h"
#include "NolSchedCtls/toolkit/fields.h"
#include "host/cli/acts.h"
#include "host/cli/field_rules.h"

namespace NolSchedCtls {

namespace {

using Text = std::optional<std::string>;

constexpr std::string_view onText = "on";
constexpr std::string_view offText = "off";

bool IsOn(const std::string& text) {
    if (text != onText && text != offText) throw UsageError("it takes on or off, not " + Quoted(text) + ".");
    return text == onText;
}

std::string OnOff(bool isOn) { return std::string(isOn ? onText : offText); }
std::string OrNone(const std::string& text) { return text.empty() ? std::string(noText) : text; }
std::string OrEmpty(const std::string& text) { return text == noText ? "" : text; }

ViewField& FieldNamed(EntrySession& session, std::string_view name) {
    const std::size_t dot = name.find('.');
    return *session.FindPage(name.substr(0, dot))->tab->FindField(name.substr(dot + 1));
}

template <class Kind>
Kind& FieldOf(EntrySession& session, std::string_view name) {
    return *FieldAs<Kind>(FieldNamed(session, name));
}

void Do(EntrySession& session, Verb verb, std::string_view name, const std::string& text = {}) {
    const std::size_t dot = name.find('.');
    const auto obstacle = [&session, tab = name.substr(0, dot), field = std::string(name.substr(dot + 1))] {
        return FieldRules(session.Home(), tab).Obstacle(*session.FindPage(tab)->tab, field);
    };
    DoAct(verb, {std::string(name), FieldNamed(session, name), obstacle}, text);
}

// What a field shows as a word's text, and the act that brings it there.
struct Shown {
    std::string text;
    Verb act;
};

Shown Show(const CheckBox& box) { return {OnOff(box.Value() != 0), Verb::Click}; }
Shown Show(const DropDownList& list) { return {list.Text(), Verb::Pick}; }
// "0060" is stored as 60.
std::string Plain(const std::string& text) {
    const auto number = ParseWhole(text);
    return number ? std::to_string(*number) : text;
}

Shown Show(const TextBox& box) { return {OrNone(Plain(box.Text())), Verb::Type}; }
Shown Show(const SSDateCombo& field) { return {IsoDayText(field.DateValue()), Verb::Date}; }
Shown Show(const XMarlet& picker) { return {OrNone(picker.Text()), Verb::Pick}; }
Shown Show(const XAmbitDownload& mode) { return {std::string(mode.Text()), Verb::Pick}; }
Shown Show(const XAmbitPurge& purge) {
    return {purge.IsOn() ? Plain(purge.DaysText()) : OnOff(false), Verb::Type};
}
Shown Show(const ViewField& /*label or frame*/) { return {{}, Verb::Click}; }

Shown Show(const DTPicker& field) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d", field.Hour(), field.Minute());
    return {text.data(), Verb::Time};
}

Shown ShownBy(ViewField& field) {
    return VisitField(field, [](const auto& kind) { return Show(kind); });
}

Text ReadAnyway(EntrySession& session, const Word& word) {
    return ShownBy(FieldNamed(session, word.field)).text;
}

// An immediate entry has no schedule, though its page shows one.
bool IsOfSchedule(EntrySession& session, const Word& word) {
    return !(session.Record().IsOverride() && word.field.starts_with("schedule."));
}

Text Read(EntrySession& session, const Word& word) {
    if (!IsOfSchedule(session, word) || !FieldNamed(session, word.field).IsUsable()) return {};
    return ReadAnyway(session, word);
}

void Write(EntrySession& session, const Word& word, const std::string& text) {
    const auto [shown, act] = ShownBy(FieldNamed(session, word.field));
    if (act != Verb::Click) return Do(session, act, word.field, OrEmpty(text));
    if (OnOff(IsOn(text)) != shown) Do(session, act, word.field);
}

Text ReadName(EntrySession& session, const Word& /*word*/) { return session.Record().EditorName; }

void WriteName(EntrySession& session, const Word& /*word*/, const std::string& text) {
    if (text.empty()) throw UsageError("an entry has a name.");
    session.Record().EditorName = text;
}

Text ReadActive(EntrySession& session, const Word& /*word*/) {
    return OnOff(session.Record().ScheduleActive == "Y");
}

void WriteActive(EntrySession& session, const Word& /*word*/, const std::string& text) {
    session.Record().ScheduleActive = IsOn(text) ? "Y" : "N";
}

Text ReadImmediate(EntrySession& session, const Word& /*word*/) {
    return session.Record().IsOverride() ? Text(onText) : Text();
}

void WriteImmediate(EntrySession& session, const Word& /*word*/, const std::string& text) {
    if (IsOn(text) != session.Record().IsOverride()) throw UsageError("an entry is made so and stays so.");
}

constexpr std::string_view dayNumber = "schedule.cboDayNum";

// "Monday"; in Monthly "Last Monday".
Text ReadDay(EntrySession& session, const Word& word) {
    const Text day = Read(session, word);
    ViewField& number = FieldNamed(session, dayNumber);
    return day && number.IsUsable() ? ShownBy(number).text + ' ' + *day : day;
}

// The day comes first: the numbers that are offered depend on it.
void WriteDay(EntrySession& session, const Word& word, const std::string& text) {
    if (!FieldNamed(session, dayNumber).IsUsable()) return Do(session, Verb::Pick, word.field, text);
    const std::size_t blank = text.find(' ');
    if (blank == std::string::npos)
        throw UsageError("it takes a number and a day, as \"15th Day\" or \"Last Friday\", not " +
                         Quoted(text) + ".");
    Do(session, Verb::Pick, word.field, text.substr(blank + 1));
    Do(session, Verb::Pick, dayNumber, text.substr(0, blank));
}

constexpr std::string_view endBox = "schedule.chkEndDate";

void SetEndBox(EntrySession& session, bool isOn) {
    if ((FieldOf<CheckBox>(session, endBox).Value() != 0) != isOn) Do(session, Verb::Click, endBox);
}

Text ReadEnd(EntrySession& session, const Word& word) {
    const auto& box = FieldOf<CheckBox>(session, endBox);
    if (!IsOfSchedule(session, word) || !box.IsUsable()) return {};
    return box.Value() == 0 ? Text(noText) : ReadAnyway(session, word);
}

void WriteEnd(EntrySession& session, const Word& word, const std::string& text) {
    SetEndBox(session, text != noText);
    if (text != noText) Do(session, Verb::Date, word.field, text);
}

std::string BoxOf(std::size_t exclusion) {
    return "schedule.cbExcludeDay(" + std::to_string(exclusion) + ")";
}

bool IsExcluded(EntrySession& session, std::size_t exclusion) {
    return FieldOf<CheckBox>(session, BoxOf(exclusion)).Value() != 0;
}

// What is excluded counts in every mode, and some modes disable the boxes: the way leads through one that
// does not, and back to all that it has changed.
void Exclude(EntrySession& session, std::size_t exclusion, bool isExcluded) {
    if (IsExcluded(session, exclusion) == isExcluded) return;
    if (FieldNamed(session, BoxOf(exclusion)).IsUsable()) return Do(session, Verb::Click, BoxOf(exclusion));
    WordTexts kept;
    for (const char* word : {"period", "on", "every", "end"})
        if (const Text text = WordNamed(word).read(session, WordNamed(word)))
            kept.push_back({&WordNamed(word), *text});
    Do(session, Verb::Pick, WordNamed("period").field, "Daily");
    Do(session, Verb::Click, BoxOf(exclusion));
    WriteWords(session, kept);
}

std::string DayOf(std::size_t exclusion) {
    std::string name(exclusions.at(exclusion).sCaption);
    std::erase(name, '&');
    return name;
}

Text ReadExclusions(EntrySession& session, const Word& word) {
    if (!IsOfSchedule(session, word)) return {};
    std::vector<std::string> days;
    for (std::size_t day = 0; day < weekdayExclusions; ++day)
        if (IsExcluded(session, day)) days.push_back(DayOf(day));
    return OrNone(Joined(days));
}

std::size_t WeekdayNamed(const std::string& name) {
    std::vector<std::string> days;
    for (std::size_t day = 0; day < weekdayExclusions; ++day) {
        if (DayOf(day) == name) return day;
        days.push_back(DayOf(day));
    }
    throw UsageError("there is no day " + Quoted(name) + "; there are " + Joined(days) + ", or none.");
}

void WriteExclusions(EntrySession& session, const Word& /*word*/, const std::string& text) {
    std::array<bool, weekdayExclusions> isExcluded{};
    const std::string days = OrEmpty(text);
    for (std::string_view rest = days; !rest.empty();) {
        const std::size_t end = std::min(rest.find(','), rest.size());
        isExcluded.at(WeekdayNamed(std::string(Trimmed(rest.substr(0, end))))) = true;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    for (std::size_t day = 0; day < weekdayExclusions; ++day) Exclude(session, day, isExcluded.at(day));
}

// Whether the entry runs on such days: the boxes say the opposite.
template <std::size_t exclusion>
Text ReadRuns(EntrySession& session, const Word& word) {
    return IsOfSchedule(session, word) ? OnOff(!IsExcluded(session, exclusion)) : Text();
}

template <std::size_t exclusion>
void WriteRuns(EntrySession& session, const Word& /*word*/, const std::string& text) {
    Exclude(session, exclusion, !IsOn(text));
}

void WritePurge(EntrySession& session, const Word& word, const std::string& text) {
    if (FieldOf<XAmbitPurge>(session, word.field).IsOn() != (text != offText))
        Do(session, Verb::Click, word.field);
    if (text != offText) Do(session, Verb::Type, word.field, text);
}

constexpr std::string_view box = "on or off";
constexpr std::string_view minutes = "minutes, or none";
constexpr std::string_view scenario = "a scenario's name, or none";

constexpr auto words = std::to_array<Word>({
    {"name", "", "the entry's name", ReadName, WriteName},
    {"group", "general.fdocRptGroup", "a study group's name", ReadAnyway, Write},
    {"active", "", "on, or off for a paused entry", ReadActive, WriteActive},
    {"immediate", "", "on for an entry without a schedule; stays as it is made", ReadImmediate,
     WriteImmediate},
    {"files", "general.chkCreateFiles", box, Read, Write},
    {"download", "general.ctlDownloadOptions", "Automatic or Manual", Read, Write},
    {"purge", "general.ctlPurgeOptions", "days, or off", Read, WritePurge},
    {"period", "schedule.cboPeriod", "Once, Hourly, Daily, Weekly or Monthly", Read, Write},
    {"on", "schedule.cboDayName", "Monday when Weekly; 15th Day or Last Friday when Monthly", ReadDay,
     WriteDay},
    {"every", "schedule.cboFrequency", "how many periods, days, weeks or months", Read, Write},
    {"at", "schedule.dtpStartTime", "the time of day: 22:30", Read, Write},
    {"start", "schedule.SSDStartDate", "the first day: 2026-03-02", Read, Write},
    {"end", "schedule.SSDEndDate", "the last day, or none", ReadEnd, WriteEnd},
    {"exclude", "schedule.cbExcludeDay(0)", "weekdays without a run: Saturday, Sunday; or none",
     ReadExclusions, WriteExclusions},
    {"holidays", "schedule.cbExcludeDay(7)", "off for no run on holidays", ReadRuns<7>, WriteRuns<7>},
    {"afterholidays", "schedule.cbExcludeDay(8)", "off for no run on the day after one", ReadRuns<8>,
     WriteRuns<8>},
    {"hom", "hom.chkOverride", box, Read, Write},
    {"hom.scenario", "hom.fdocCBScenario", scenario, Read, Write},
    {"hom.duration", "hom.txtDuration", minutes, Read, Write},
    {"plm", "plm.chkOverride", box, Read, Write},
    {"plm.scenario", "plm.fdocCBScenario", scenario, Read, Write},
    {"plm.duration", "plm.txtDuration", minutes, Read, Write},
    {"plm.delay", "plm.txtRetrieveDelay", minutes, Read, Write},
    {"rfc", "rfc.chkOverride", box, Read, Write},
    {"rfc.duration", "rfc.txtDuration", minutes, Read, Write},
    {"rfc.polling", "rfc.txtPollingInterval", "seconds, or none", Read, Write},
    {"vcsa", "vcsa.chkOverride", box, Read, Write},
    {"vcsa.duration", "vcsa.txtDuration", minutes, Read, Write},
    {"vcsa.delay", "vcsa.txtRetrieveDelay", minutes, Read, Write},
});

void WriteWord(EntrySession& session, const WordText& given) {
    const Word& word = *given.word;
    const std::string named = std::string(word.name) + ": ";
    if (word.read(session, word) == given.text) return;
    try {
        if (!IsOfSchedule(session, word)) throw UsageError("an immediate entry has no schedule.");
        word.write(session, word, given.text);
    } catch (const UsageError& error) {
        const UsageError::Refusal own{std::string(word.name), given.text, {}};
        throw UsageError(named + error.what(), error.refusal.value_or(own));
    }
}

}  // namespace

std::span<const Word> Words() { return words; }

const Word& WordNamed(const std::string& name) {
    const auto* const found = std::ranges::find(words, name, &Word::name);
    if (found != words.end()) return *found;
    std::vector<std::string> names(words.size());
    std::ranges::transform(words, names.begin(), [](const Word& word) { return std::string(word.name); });
    const auto nearest = NearestOf(name, names);
    throw UsageError("There is no word " + Quoted(name) +
                     (nearest ? "; did you mean " + *nearest + "?" : "; there are " + Joined(names) + "."));
}

WordTexts ParseWords(const std::vector<std::string>& arguments) {
    WordTexts texts;
    for (const std::string& argument : arguments) {
        const std::size_t equals = argument.find('=');
        const Word& word = WordNamed(argument.substr(0, equals));
        if (equals == std::string::npos)
            throw UsageError(std::string(word.name) + " stands with a text, as " + std::string(word.name) +
                             "=TEXT.");
        if (TextOf(texts, word.name) != nullptr)
            throw UsageError(std::string(word.name) + " is given twice.");
        texts.push_back({&word, argument.substr(equals + 1)});
    }
    return texts;
}

const std::string* TextOf(const WordTexts& texts, std::string_view word) {
    const auto found = std::ranges::find(texts, word, [](const WordText& text) { return text.word->name; });
    return found == texts.end() ? nullptr : &found->text;
}

WordTexts ReadWords(EntrySession& session) {
    WordTexts texts;
    for (const Word& word : words)
        if (auto text = word.read(session, word)) texts.push_back({&word, *std::move(text)});
    return texts;
}

void WriteWords(EntrySession& session, const WordTexts& texts) {
    for (const Word& word : words)
        if (const std::string* const text = TextOf(texts, word.name)) WriteWord(session, {&word, *text});
}

std::vector<WordChange> ChangesBetween(const WordTexts& before, const WordTexts& after) {
    std::vector<WordChange> changes;
    const auto textIn = [](const WordTexts& texts, std::string_view word) {
        const std::string* const text = TextOf(texts, word);
        return text == nullptr ? std::string(noText) : *text;
    };
    for (const Word& word : words)
        if (auto from = textIn(before, word.name), to = textIn(after, word.name); from != to)
            changes.push_back({word.name, std::move(from), std::move(to)});
    return changes;
}

}  // namespace NolSchedCtls
