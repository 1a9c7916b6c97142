// An entry's settings as words: "period=Weekly". What is set, dumped, applied and told as help reads one
// table.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/entries/document_acts.h"
#include "host/entries/entry_session.h"

namespace NolSchedCtls {

struct Word {
    std::string_view name;
    std::string_view field;  // "schedule.cboPeriod"; empty: the entry's own
    std::string_view takes;  // "on or off"
    // Nothing while the entry has no such setting, as the day of a daily one.
    std::optional<std::string> (*read)(EntrySession&, const Word&);
    void (*write)(EntrySession&, const Word&, const std::string& text);
};

// In an order in which they can be set one after the other.
std::span<const Word> Words();

inline constexpr std::string_view noText = noDocument;

struct WordText {
    const Word* word;
    std::string text;
};
using WordTexts = std::vector<WordText>;

// Throws UsageError that names what is there.
const Word& WordNamed(const std::string& name);
// "period=Weekly". Throws UsageError, also for a word that comes twice.
WordTexts ParseWords(const std::vector<std::string>& arguments);
// The text of a word among them.
const std::string* TextOf(const WordTexts& texts, std::string_view word);

// All that the loaded session has.
WordTexts ReadWords(EntrySession& session);
// As the acts of a user; what stands already is left alone. Throws UsageError that names word and field.
void WriteWords(EntrySession& session, const WordTexts& texts);

struct WordChange {
    std::string_view word;
    std::string from;
    std::string to;
};
std::vector<WordChange> ChangesBetween(const WordTexts& before, const WordTexts& after);

}  // namespace NolSchedCtls
