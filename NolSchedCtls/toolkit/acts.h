// A user's acts on a field by words, and the words in which a field is told: for whoever has a field's name
// and a text instead of a widget.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NolSchedCtls/toolkit/view_field.h"

namespace NolSchedCtls::inline v1 {

enum class Verb { Click, Pick, Type, Paste, Date, Time };

// Nothing for a word that stands for no act on a field.
std::optional<Verb> VerbNamed(std::string_view word);

// Whether it is an act for that kind of field.
bool IsKnown(Verb verb, const ViewField& field);

// Why no user can do it now: " is hidden", " is disabled" or " is a list, which one cannot click"; empty if
// nothing stands in the way.
std::string ObstacleTo(Verb verb, const ViewField& field);

// Why a text that was typed or pasted is refused.
class RefusedText : public ValueError {
  public:
    using ValueError::ValueError;
};

// For an act without obstacle. False: the field does not offer the text. Throws RefusedText; the field is
// then as it was.
bool DoAct(Verb verb, ViewField& field, const std::string& text);

// "list", "date", ...
std::string KindName(const ViewField& field);

// What a user may choose there; bounds as one text. Empty for a field without a choice.
std::vector<std::string> OfferedBy(const ViewField& field);

// Whether the field and the frames that hold it are enabled.
bool IsEnabled(const ViewField& field);

}  // namespace NolSchedCtls::inline v1
