// `nolsched list` of longer and longer lists, beside a program that reads and prints what a list needs
// through SQLite's own interface: the processor's time and the peak memory of the whole process.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "bench/claims.h"
#include "bench/process.h"

namespace {

using namespace NolSchedCtls::Bench;
namespace fs = std::filesystem;

constexpr int sizes[] = {1000, 10000, 100000, 1000000};

// One entry of each kind; the last line of each is what makes it.
constexpr const char* scripts[] = {
    "save\n",
    "pick schedule.cboPeriod Hourly\npick schedule.cboFrequency 2\nsave\n",
    "pick schedule.cboPeriod Daily\nclick hom.chkOverride\nsave\n",
    "pick schedule.cboPeriod Weekly\npick schedule.cboDayName Friday\nclick hom.chkOverride\nclick "
    "vcsa.chkOverride\nsave\n",
    "pick schedule.cboPeriod Monthly\npick schedule.cboDayNum Last\nsave\n",
    "pick schedule.cboPeriod Monthly\npick schedule.cboDayNum 2nd\npick schedule.cboDayName Monday\nsave\n"};

// The rows that are there, again and again, until there are enough.
std::string GrowStatements(int size) {
    const std::string begin =
        "BEGIN; CREATE TEMP TABLE Sample AS SELECT * FROM NOL_Schedule;"
        "CREATE TEMP TABLE Again AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i "
        "< ";
    const std::string entries =
        ") SELECT i + (SELECT MAX(Id) FROM Sample) AS NewId, Sample.* FROM n JOIN Sample ON Sample.Id = 1 + "
        "i % 6;"
        "UPDATE Again SET Id = NewId; ALTER TABLE Again DROP COLUMN NewId;"
        "INSERT INTO NOL_Schedule SELECT * FROM Again;";
    const std::string overrides =
        "INSERT INTO NOL_Override SELECT Again.Id, Type, ScenarioId, Duration, Polling_Interval, "
        "Retrieve_Delay, ClearLog "
        "FROM Again JOIN NOL_Override ON NOL_OverrideId = 1 + (Again.Id - 6) % 6; COMMIT";
    return begin + std::to_string(size - 6) + entries + overrides;
}

void MakeEntries(const std::string& file, const fs::path& folder) {
    for (const char* script : scripts) {
        const auto scriptFile = (folder / "script").string();
        std::ofstream(scriptFile) << script;
        Run({NOLSCHED, "--db", file, "--now", "2026-03-02T09:05", "new", "--name", "Nightly", "--group",
             "North Cells", scriptFile});
    }
}

std::string MakeStore(const fs::path& folder, int size) {
    const std::string file = (folder / (std::to_string(size) + ".db")).string();
    MakeEntries(file, folder);
    Run({SQLITE3, file, GrowStatements(size)});
    return file;
}

void MeasureProgram(const std::string& name, const std::vector<std::string>& command, int size) {
    constexpr int wholeSeconds = 1000000;  // entries
    auto* const measured =
        benchmark::RegisterBenchmark(name.c_str(), [command, size](benchmark::State& state) {
            Finished finished;
            for (auto _ : state) {
                finished = Run(command);
                state.SetIterationTime(finished.seconds);
            }
            state.counters["MB"] = static_cast<double>(finished.nPeakKilobytes) / 1024;
            using benchmark::Counter;
            state.counters["ns"] = Counter(size / 1e9, Counter::kIsIterationInvariantRate | Counter::kInvert);
        });
    measured->UseManualTime()->Iterations(std::max(1, 20000 / size));
    if (size >= wholeSeconds) measured->Repetitions(3);
}

std::vector<Claim> MeasureSize(const fs::path& folder, int size) {
    const std::string name = std::to_string(size);
    const std::string file = MakeStore(folder, size);
    MeasureProgram(name, {NOLSCHED, "--db", file, "list"}, size);
    MeasureProgram("plain " + name, {PLAIN_LIST, file}, size);
    const double most = size == 1000000 ? 4 : 0;
    return {
        {"nolsched list of " + name + " / plain SQLite", name, "plain " + name, most, "", "", size == 10000},
        {"nolsched list of " + name + ", an entry", name, "", 0, "ns", " ns"},
        {"nolsched list of " + name + ", peak memory", name, "", 0, "MB", " MB"}};
}

bool IsMeasured(int size, Extent extent) {
    return extent == Extent::Whole || (extent == Extent::Steady ? size == 10000 : size <= 10000);
}

}  // namespace

int main(int argc, char** argv) {
    const TemporaryFolder folder;
    const Extent extent = ExtentOf(argc, argv);
    std::vector<Claim> claims;
    for (const int size : sizes)
        if (IsMeasured(size, extent))
            std::ranges::move(MeasureSize(folder.path, size), std::back_inserter(claims));
    if (extent == Extent::Whole) {
        claims.push_back(
            {"list: time an entry, of 1000000 / of 10000", "1000000", "10000", 1.1, "ns", " ns"});
        claims.push_back({"list: peak memory, of 1000000 / of 10000", "1000000", "10000", 1.1, "MB", " MB"});
    }
    return RunClaims(argc, argv, std::move(claims));
}
