#include "host/cli/acts.h"

#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls {

namespace {

// " while cboPeriod is "Once"", where that is known.
std::string WhileText(const Target& target) {
    std::string obstacle;
    try {
        if (target.obstacle) obstacle = target.obstacle();
    } catch (const NolSchedError&) {  // the line is refused all the same
    }
    return obstacle.empty() ? obstacle : " while " + obstacle;
}

std::string OfferText(const std::string& text, const std::vector<std::string>& offered) {
    if (const auto nearest = NearestOf(text, offered)) return "; did you mean " + Quoted(*nearest) + "?";
    return "; it offers " + (offered.empty() ? "nothing" : Joined(offered, Quoted)) + ".";
}

}  // namespace

// A text that the act cannot read is as little offered as one out of bounds.
void DoAct(Verb verb, const Target& target, const std::string& text) {
    ViewField& field = target.field;
    const auto refuse = [&](const std::string& told) {
        throw UsageError(target.name + told, {target.name, text, OfferedBy(field)});
    };
    if (const std::string obstacle = ObstacleTo(verb, field); !obstacle.empty())
        refuse(obstacle + (field.IsUsable() ? "" : WhileText(target)) + ".");
    bool isDone = false;
    try {
        isDone = DoAct(verb, field, text);
    } catch (const NolSchedError& error) {
        refuse(std::string(": ") + error.what());
    }
    if (!isDone) refuse(" does not offer " + Quoted(text) + OfferText(text, OfferedBy(field)));
}

}  // namespace NolSchedCtls
