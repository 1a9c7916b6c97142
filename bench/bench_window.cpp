// The main window over many entries: how soon they are all there, what it takes of memory, how long it stands
// still, and how soon a filter's rows are painted.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "bench/claims.h"
#include "bench/process.h"

namespace {

using namespace NolSchedCtls::Bench;
namespace fs = std::filesystem;

// Of one entry many, with names, starts and recurrences of their own.
std::string GrowStatements(int size) {
    return "BEGIN; CREATE TEMP TABLE Again AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
           "WHERE i + 1 < " +
           std::to_string(size) +
           ") SELECT i, NOL_Schedule.* FROM n, NOL_Schedule; UPDATE Again SET Id = i + 1, EditorName = "
           "'Count of the cells ' || (i * 7919 % 1000003), Periodicity = substr('HDWO', 1 + i % 4, 1), "
           "WhichWeekday = 1 + i % 7, FirstDateTime = datetime('2025-01-01', '+' || (i * 37 % 500) || "
           "' days', '+' || (i * 15 % 1440) || ' minutes'), SavedAt = datetime('2026-01-01', '+' || (i % "
           "5000000) || ' seconds'); ALTER TABLE Again DROP COLUMN i; INSERT INTO NOL_Schedule SELECT * FROM "
           "Again; COMMIT";
}

std::string MakeStore(const fs::path& folder, int size) {
    std::string file = (folder / (std::to_string(size) + ".db")).string();
    const std::string script = (folder / "script").string();
    std::ofstream(script) << "pick schedule.cboPeriod Weekly\nsave\n";
    Run({NOLSCHED, "--db", file, "new", "--name", "Nightly", "--group", "North Cells", script});
    Run({SQLITE3, file, GrowStatements(size)});
    return file;
}

void MeasureWindow(const fs::path& folder, int size, int repetitions) {
    const auto work = [store = MakeStore(folder, size), results = (folder / "results").string(),
                       folder = folder.string()](benchmark::State& state) {
        for (auto _ : state)
            Run({WINDOW_WORK, store, results}, {"XDG_CONFIG_HOME=" + folder, "XDG_RUNTIME_DIR=" + folder});
        std::ifstream told(results);
        double value = 0;
        for (std::string name; told >> value && std::getline(told >> std::ws, name);)
            state.counters[name] = value;
    };
    benchmark::RegisterBenchmark(std::to_string(size).c_str(), work)->Iterations(1)->Repetitions(repetitions);
}

std::vector<Claim> ClaimsOf(const std::string& size) {
    const std::string of = "window, " + size + " entries: ";
    return {{of + "complete", size, "", 0, "load", " s"},
            {of + "peak memory when complete", size, "", 0, "peak", " MB"},
            {of + "longest standstill while loading", size, "", 50, "load gap", " ms"},
            {of + "longest while filtering", size, "", 50, "filter gap", " ms"},
            {of + "longest while sorting", size, "", 50, "sort gap", " ms"},
            {of + "longest while going to the end and back", size, "", 50, "scroll gap", " ms"},
            {of + "filter word to the painted list", size, "", 0, "filter", " ms"},
            {of + "sorted by name", size, "", 0, "sort", " ms"},
            {of + "peak memory after all that", size, "", 0, "last peak", " MB"}};
}

}  // namespace

int main(int argc, char** argv) {
    const Extent extent = ExtentOf(argc, argv);
    if (extent == Extent::Steady) return 0;  // no ratios
    const TemporaryFolder folder;
    const bool isOnce = extent == Extent::Once;
    std::vector<Claim> claims;
    for (const auto& [size, repetitions] : {std::pair{100000, 5}, std::pair{1000000, 1}}) {
        const int measured = isOnce ? size / 100 : size;
        MeasureWindow(folder.path, measured, isOnce ? 1 : repetitions);
        std::ranges::move(ClaimsOf(std::to_string(measured)), std::back_inserter(claims));
    }
    for (Claim& claim : claims) {
        const std::string_view counter = claim.counter;
        if (claim.ours != "100000") continue;
        if (counter == "load") claim.figure = 1;
        if (counter == "peak") claim.figure = 70;
        if (counter == "filter") claim.figure = 30;
    }
    return RunClaims(argc, argv, claims);
}
