// Edits of one script: a stored entry is opened in its tabs, changed, asked whether it is valid and saved
// with its overrides, in a store in memory.
#include <filesystem>
#include <sstream>

#include "bench/claims.h"
#include "host/cli/script.h"

namespace {

using namespace NolSchedCtls;
using namespace NolSchedCtls::Bench;

// Each changes what the one before it has stored.
std::string NextEdit() {
    static int edit = 0;
    edit = edit % 7 + 1;
    return "pick schedule.cboFrequency " + std::to_string(edit) + "\nvalid\nsave\n";
}

int Edit(Workspace& workspace, std::int32_t id, const std::string& lines) {
    std::ostringstream out;
    Answers answers(out, out);
    EntrySession session(workspace, id);
    Script script(workspace, session, answers);
    session.Load();
    std::istringstream in(lines);
    return script.Run(in, "script", Unsaved::Refuse);
}

// An entry with two overrides.
std::int32_t MakeEntry(Workspace& workspace) {
    std::ostringstream out;
    Answers answers(out, out);
    EntrySession session(workspace, EntrySession::NewEntry{false, 1, "Nightly"});
    Script script(workspace, session, answers);
    session.Load();
    std::istringstream in(
        "pick schedule.cboPeriod Daily\n"
        "click hom.chkOverride\nclick vcsa.chkOverride\nsave\n");
    if (script.Run(in, "script", Unsaved::Refuse) != exitDone) throw std::runtime_error(out.str());
    return session.Record().Id;
}

}  // namespace

int main(int argc, char** argv) {
    Workspace workspace({":memory:", "bench", [](const Message&) {}, {}});
    const std::int32_t id = MakeEntry(workspace);
    Measure("edit", [&workspace, id] {
        if (Edit(workspace, id, NextEdit()) != exitDone) throw std::runtime_error("An edit was refused.");
    });
    return RunClaims(argc, argv,
                     {{"an edit by script: open, pick, valid, save, in memory", "edit", "", 5e4}});
}
