#include "host/window/entry_filter.h"

#include <algorithm>
#include <cmath>

#include "NolSchedCtls/services/provider.h"
#include "NolSchedCtls/toolkit/date_text.h"
#include "host/window/qt_text.h"
#include "host/window/run_text.h"

namespace NolSchedCtls {

namespace {

constexpr double firstDay = -657434;  // 100-01-01
constexpr double secondsOfDay = 86400;

constexpr SharedText EntryRow::*sharedTexts[] = {&EntryRow::group, &EntryRow::sentence, &EntryRow::state,
                                                 &EntryRow::except, &EntryRow::overrides};

// A few letters become several when they are folded, so that the quick way misses them; names of plain
// letters have none.
bool IsHeldIn(const QString& text, const QString& word) {
    const auto isPlain = [](QChar letter) { return letter < u'\x80'; };
    return text.contains(word, Qt::CaseInsensitive) ||
           (!std::ranges::all_of(text, isPlain) && text.toCaseFolded().contains(word));
}

struct MomentPlace {
    std::size_t day;
    std::size_t minute;  // of the day
};

// Of what is shown: texts round to the second.
MomentPlace PlaceOf(DateTime moment) {
    const double seconds = std::round((moment - firstDay) * secondsOfDay);
    const double day = std::max(0.0, std::floor(seconds / secondsOfDay));
    return {static_cast<std::size_t>(day), static_cast<std::size_t>((seconds - day * secondsOfDay) / 60)};
}

bool IsNumber(const QString& word) {
    return std::ranges::all_of(word, [](QChar letter) { return letter.isDigit() || letter == u'-'; });
}

}  // namespace

EntryFilter::EntryFilter(const QString& text, const QString& stateA)
    : state(stateA), dates(MakeDateSettings(DateSettings().DateOrder())) {
    for (const QString& word : text.toCaseFolded().split(u' ', Qt::SkipEmptyParts)) {
        words.emplace_back().text = word;
        words.back().isNumber = IsNumber(word);
    }
}

bool EntryFilter::HoldsDay(Word& word, DateTime day) const {
    return word.days.Get(PlaceOf(day).day,
                         [&] { return IsHeldIn(ToQt(ShortDateText(day, *dates)), word.text); });
}

bool EntryFilter::HoldsEnd(Word& word, DateTime end) const {
    return word.ends.Get(PlaceOf(end).day, [&] { return IsHeldIn(EndText(end, *dates), word.text); });
}

bool EntryFilter::HoldsTime(Word& word, DateTime moment) {
    return word.minutes.Get(PlaceOf(moment).minute, [&] { return IsHeldIn(TimeText(moment), word.text); });
}

// The moment of the save comes after a comma.
bool EntryFilter::HoldsSaver(Word& word, const SharedText& saver) {
    return word.savers.Get(
        saver.Number(), [&] { return !saver.Text().isEmpty() && IsHeldIn(saver.Text() + u',', word.text); });
}

// Day and time for themselves: a word has no blank.
bool EntryFilter::HoldsDates(Word& word, const EntryRow& row) const {
    const auto isHeld = [&](DateTime moment) { return HoldsDay(word, moment) || HoldsTime(word, moment); };
    return (row.hasDates && (HoldsDay(word, row.start) || HoldsEnd(word, row.end))) ||
           (row.hasTime && HoldsTime(word, row.start)) || (row.HasNext() && isHeld(row.next)) ||
           (row.savedAt != 0 && isHeld(row.savedAt));
}

// What is found quickest comes first.
bool EntryFilter::Holds(Word& word, const EntryRow& row) const {
    const auto isHeld = [&](SharedText EntryRow::*member) {
        const SharedText& text = row.*member;
        return word.texts.Get(text.Number(), [&] { return IsHeldIn(text.Text(), word.text); });
    };
    return std::ranges::any_of(sharedTexts, isHeld) || HoldsSaver(word, row.savedBy) ||
           HoldsDates(word, row) || IsHeldIn(row.name, word.text) ||
           (word.isNumber && QString::number(row.id).contains(word.text));
}

bool EntryFilter::Passes(const EntryRow& row) {
    return (state.isEmpty() || row.state.Text() == state) &&
           std::ranges::all_of(words, [&](Word& word) { return Holds(word, row); });
}

EntryRows EntryFilter::Passing(const EntryRows& rows, const std::stop_token& stop) {
    if (words.empty() && state.isEmpty()) return rows;
    EntryRows passing;
    for (const RowPointer& row : rows) {
        if (stop.stop_requested()) break;
        if (Passes(*row)) passing.append(row);
    }
    return passing;
}

}  // namespace NolSchedCtls
