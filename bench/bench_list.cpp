// `nolsched list` of longer and longer lists: speed and peak memory of the whole process.
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "bench/claims.h"
#include "bench/process.h"

namespace {

using namespace NolSchedCtls::Bench;
namespace fs = std::filesystem;

constexpr int sizes[] = {1000, 10000, 100000};

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
    sqlite3* connection = nullptr;
    char* error = nullptr;
    sqlite3_open(file.c_str(), &connection);
    sqlite3_exec(connection, GrowStatements(size).c_str(), nullptr, nullptr, &error);
    if (error != nullptr) throw std::runtime_error(error);
    sqlite3_close(connection);
    return file;
}

void MeasureList(int size, const std::string& file) {
    benchmark::RegisterBenchmark(
        std::to_string(size).c_str(),
        [file, size](benchmark::State& state) {
            long nPeak = 0;
            for (auto _ : state) nPeak = Run({NOLSCHED, "--db", file, "list"}).nPeakKilobytes;
            state.counters["MB"] = static_cast<double>(nPeak) / 1024;
            using benchmark::Counter;
            state.counters["rate"] = Counter(size, Counter::kIsIterationInvariantRate);
            state.counters["us"] = Counter(size / 1e6, Counter::kIsIterationInvariantRate | Counter::kInvert);
        })
        ->UseRealTime()
        ->Iterations(1);
}

}  // namespace

int main(int argc, char** argv) {
    const fs::path folder = fs::temp_directory_path() / "nolsched-list";
    fs::remove_all(folder);
    fs::create_directory(folder);
    std::vector<Claim> claims;
    for (const int size : sizes) {
        const std::string name = std::to_string(size);
        MeasureList(size, MakeStore(folder, size));
        claims.push_back({"nolsched list of " + name + ", entries a second", name, "", 0, "rate", "/s"});
        claims.push_back({"nolsched list of " + name + ", peak memory", name, "", 0, "MB", " MB"});
    }
    claims.push_back({"list: time an entry, of 100000 / of 10000", "100000", "10000", 1.1, "us", " us"});
    claims.push_back({"list: peak memory, of 100000 / of 10000", "100000", "10000", 1.1, "MB", " MB"});
    const int status = RunClaims(argc, argv, claims);
    fs::remove_all(folder);
    return status;
}
