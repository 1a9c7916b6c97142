// When the fields of a tab can be used, and what they offer then. Found by trying: only the tabs know rules.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/cli/answers.h"
#include "host/entries/entry_session.h"

namespace NolSchedCtls {

// Of new entries with a schedule. A switch is a box or a short list that changes which fields are usable.
class FieldRules {
  public:
    // Tries each value of each switch of the tab on sessions of its own, of which nothing is saved and
    // nothing told. Throws what a session's Load throws.
    FieldRules(Workspace& workspaceA, std::string_view tabNameA);

    // {"tab": ..., "name": ..., "kind": ..., "caption": ..., "offers": [...], "while": ...} for each field,
    // in tab order. "while" is null for a field that is always usable, "never" for one that never is.
    std::vector<Json> Told() const;
    // The fewest switches as they stand in the tab with which no field of that name is usable, as
    // `cboPeriod is "Once"`; empty if that has another cause.
    std::string Obstacle(const UserControl& tab, const std::string& field) const;

  private:
    using Texts = std::vector<std::string>;
    struct Act {
        std::string name;
        std::string text;
    };
    struct State {
        Texts values;                         // of the switches, in their order
        std::map<std::string, Texts> usable;  // by name: what they offer
    };
    using States = std::vector<const State*>;
    using Choice = std::vector<std::size_t>;  // numbers of switches, in their order

    std::unique_ptr<EntrySession> Replay(const std::vector<Act>& acts) const;
    bool Explore(const std::vector<Act>& acts, std::size_t next);
    bool FindSwitch(const UserControl& tab);
    Texts ValuesOf(const UserControl& tab) const;
    std::vector<Choice> Choices() const;
    bool IsDecided(const std::string& field, const Choice& choice) const;
    Json Condition(const std::string& field) const;
    std::optional<std::string> Condition(const std::string& field, const States& among,
                                         std::span<const std::size_t> choice) const;
    Texts Offers(const std::string& field) const;

    Workspace& workspace;
    std::string tabName;
    Texts switches;
    std::vector<State> states;
};

}  // namespace NolSchedCtls
