// From the start of `nolsched-editor` to its first painted frame, beside a bare Qt window with a table; and
// `nolsched list` of an empty store, from start to end, beside SQLite's own program with a select.
#include "bench/claims.h"
#include "bench/process.h"

namespace {

using namespace NolSchedCtls::Bench;

void MeasureStart(const std::string& name, const std::vector<std::string>& command,
                  const std::string& folder) {
    Measure(name, [command, folder] {
        Run(command, {"LD_PRELOAD=" FIRST_FRAME, "QT_QPA_PLATFORM=offscreen", "XDG_CONFIG_HOME=" + folder,
                      "XDG_RUNTIME_DIR=" + folder});
    })->Iterations(3);
}

}  // namespace

int main(int argc, char** argv) {
    const TemporaryFolder made;
    const std::string folder = made.path.string();
    const std::string store = folder + "/entries.db";
    Run({NOLSCHED, "--db", store, "init"});
    MeasureStart("editor", {NOLSCHED_EDITOR, "--db", store}, folder);
    MeasureStart("bare", {BARE_WINDOW}, folder);
    Measure("list", [store] { Run({NOLSCHED, "--db", store, "list"}); })->Iterations(50);
    Measure("select", [store] { Run({SQLITE3, store, "select 1"}); })->Iterations(50);
    return RunClaims(argc, argv,
                     {{"editor, start to first frame / a bare Qt window with a table", "editor", "bare", 1.1},
                      {"nolsched list of an empty store / sqlite3 FILE 'select 1'", "list", "select", 1.5}});
}
