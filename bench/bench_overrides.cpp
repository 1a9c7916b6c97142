// Four overrides to the store and back, beside the same statements on SQLite's own interface; and in a table
// that grows.
#include <sqlite3.h>

#include <filesystem>

#include "NolSchedCtls/records/sql.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "bench/claims.h"
#include "platform/schema.h"
#include "platform/services.h"

namespace {

using namespace NolSchedCtls;
using namespace NolSchedCtls::Bench;

void Fail(const std::string& what) { throw NolSchedError(what); }

// Each save has other values than the one before it, as a person's has.
int NextDuration() {
    static int duration = 0;
    return duration = duration % 9999 + 1;
}

std::vector<std::string> SaveStatements() {
    std::vector<std::string> statements = {"BEGIN IMMEDIATE",
                                           "DELETE FROM NOL_Override WHERE NOL_OverrideId = 500"};
    for (const auto& kind : studyKinds)
        statements.push_back(
            "INSERT INTO NOL_Override (NOL_OverrideId, Type, ScenarioId, Duration, Polling_Interval, "
            "Retrieve_Delay, ClearLog) VALUES (500, '" +
            std::string(kind.sKey) + "', 12, " + std::to_string(NextDuration()) + ", NULL, 5, '')");
    statements.emplace_back("COMMIT");
    return statements;
}

constexpr const char* loadStatement = "SELECT * FROM NOL_Override WHERE NOL_OverrideId = 500";

// SQLite without anything between.
class Plain {
  public:
    explicit Plain(const std::string& file) {
        if (sqlite3_open(file.c_str(), &connection) != SQLITE_OK) Fail(file);
    }
    ~Plain() { sqlite3_close(connection); }
    Plain(const Plain&) = delete;
    Plain& operator=(const Plain&) = delete;

    void Execute(const std::string& statement) {
        if (sqlite3_exec(connection, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            Fail(statement);
    }

    void Load(CNolSchedData& record) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(connection, loadStatement, -1, &statement, nullptr) != SQLITE_OK)
            Fail(loadStatement);
        const auto number = [&](int column) { return sqlite3_column_int(statement, column); };
        const auto text = [&](int column) {
            return std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
        };
        while (sqlite3_step(statement) == SQLITE_ROW) {
            auto item = std::make_shared<CNolOverride>();
            item->Initialize(number(0), text(1), number(2), number(3), number(4), number(5), text(6));
            record.AddNolOverride(item, item->OverrideType);
        }
        sqlite3_finalize(statement);
    }

  private:
    sqlite3* connection = nullptr;
};

CNolSchedData& RecordWithOverrides() {
    static CNolSchedData record;
    if (record.Overrides().Count() > 0) return record;
    record.Id = 500;
    for (const auto& kind : studyKinds) {
        auto item = std::make_shared<CNolOverride>();
        item->Initialize(500, std::string(kind.sKey), 12, 60, -1, 5, "");
        record.AddNolOverride(std::move(item), std::string(kind.sKey));
    }
    return record;
}

// A store with rows of that many overrides, four an entry; entry 500 is among them.
std::shared_ptr<Database> MakeStore(const std::string& address, int rows) {
    std::shared_ptr<Database> database = OpenDatabase(address);
    PrepareTables(*database);
    Transaction transaction(*database);
    database->Execute(
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
        std::to_string(rows) +
        ") INSERT INTO NOL_Override SELECT 1 + i / 4 + (i / 4 >= 499), 'Type ' || (i % 4), 12, 60, NULL, 5, "
        "'' FROM n");
    transaction.Commit();
    return database;
}

// The library's services are the process's: the store in use changes with the benchmark.
void Use(const std::shared_ptr<Database>& database) {
    InstallServices([database] {
        return MakePlatformProvider(database,
                                    {[](const Message&) {}, [](const std::string& text) { Fail(text); }, {}});
    });
}

void Save(Database& database) {
    Transaction transaction(database);
    for (const auto& [key, item] : RecordWithOverrides().Overrides()) item->Duration = NextDuration();
    RecordWithOverrides().SaveNolOverrides();
    transaction.Commit();
}

template <class Step>
void LoadBy(Step load) {
    CNolSchedData record;
    record.Id = 500;
    load(record);
    if (record.Overrides().Count() != studyKinds.size()) Fail("overrides are missing");
}

void Load() { LoadBy(MSQL::LoadNolOverrides); }

void PlainSave(Plain& plain) {
    for (const auto& statement : SaveStatements()) plain.Execute(statement);
}

void PlainLoad(Plain& plain) {
    LoadBy([&plain](CNolSchedData& record) { plain.Load(record); });
}

// A disk takes now more, now less for a durable commit; a median needs many.
constexpr double secondsOnDisk = 0.4;

// The first save stands outside the measured time.
template <class Step>
benchmark::internal::Benchmark* MeasureOn(const std::string& name, const std::shared_ptr<Database>& database,
                                          Step step) {
    return benchmark::RegisterBenchmark(name.c_str(),
                                        [database, step](benchmark::State& state) {
                                            Use(database);
                                            Save(*database);
                                            for (auto _ : state) step(*database);
                                        })
        ->UseRealTime();
}

void MeasurePlatform(const std::string& name, const std::string& address, int rows) {
    const auto database = MakeStore(address, rows);
    MeasureOn("save " + name, database, [](Database& store) { Save(store); })->MinTime(secondsOnDisk);
    MeasureOn("load " + name, database, [](Database&) { Load(); });
    MeasureOn("both " + name, database, [](Database& store) {
        Save(store);
        Load();
    })->MinTime(secondsOnDisk);
}

void MeasurePlain(const std::string& name, const std::string& file, int rows) {
    const auto plain = std::make_shared<Plain>(file);
    if (file != ":memory:") {
        MakeStore(file, rows);
    } else {
        plain->Execute(
            "CREATE TABLE NOL_Override (NOL_OverrideId INTEGER NOT NULL, Type TEXT NOT NULL, "
            "ScenarioId INTEGER, Duration INTEGER, Polling_Interval INTEGER, Retrieve_Delay INTEGER, "
            "ClearLog TEXT);"
            "CREATE INDEX NOL_Override_Id ON NOL_Override (NOL_OverrideId)");
    }
    PlainSave(*plain);
    Measure("plain save " + name, [plain] { PlainSave(*plain); })->MinTime(secondsOnDisk);
    Measure("plain load " + name, [plain] { PlainLoad(*plain); });
    Measure("plain both " + name, [plain] {
        PlainSave(*plain);
        PlainLoad(*plain);
    })->MinTime(secondsOnDisk);
}

}  // namespace

int main(int argc, char** argv) {
    std::string folder = std::filesystem::temp_directory_path() / "nolsched-XXXXXX";
    if (mkdtemp(folder.data()) == nullptr) Fail(folder);
    const auto file = [&folder](const char* name) { return folder + "/" + name; };
    MeasurePlatform("file", file("platform.db"), 1000);
    MeasurePlain("file", file("plain.db"), 1000);
    MeasurePlatform("memory", ":memory:", 0);
    MeasurePlain("memory", ":memory:", 0);
    MeasurePlatform("1000000", file("million.db"), 1000000);
    const int status = RunClaims(
        argc, argv,
        {{"save four overrides to a file, durably / plain SQLite", "save file", "plain save file", 1.05},
         {"save and load them there / plain SQLite", "both file", "plain both file", 1.05},
         {"load them there / plain SQLite", "load file", "plain load file"},
         {"save four overrides, in memory / plain SQLite", "save memory", "plain save memory", 1.3},
         {"load four overrides, in memory / plain SQLite", "load memory", "plain load memory", 1.3},
         {"save four overrides among 1,000,000 / among 1,000", "save 1000000", "save file", 1.3},
         {"load four overrides among 1,000,000 / among 1,000", "load 1000000", "load file", 1.3}});
    InstallServices({});
    std::filesystem::remove_all(folder);
    return status;
}
