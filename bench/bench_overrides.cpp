// Four overrides to the store and back, beside the same statements on SQLite's own interface; and in a table
// that grows.
#include <sqlite3.h>

#include <array>
#include <utility>

#include "NolSchedCtls/records/sql.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "bench/claims.h"
#include "bench/process.h"
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

// Each act is done to another entry than the one before it.
constexpr int firstEntry = 500;
constexpr int entries = 8;
constexpr const char* inMemory = ":memory:";
int NextEntry() {
    static int entry = 0;
    return firstEntry + (entry = (entry + 1) % entries);
}

// SQLite without anything between: each statement prepared once, or after Forget anew, its values bound.
class Plain {
  public:
    explicit Plain(const std::string& file) {
        if (sqlite3_open(file.c_str(), &connection) != SQLITE_OK) Fail(file);
    }
    ~Plain() {
        Forget();
        sqlite3_close(connection);
    }
    Plain(const Plain&) = delete;
    Plain& operator=(const Plain&) = delete;

    void Forget() {
        for (sqlite3_stmt*& statement : prepared) sqlite3_finalize(std::exchange(statement, nullptr));
    }

    void Execute(const std::string& statement) {
        if (sqlite3_exec(connection, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            Fail(statement);
    }

    void Save(int id) {
        Step(begin);
        sqlite3_bind_int(Prepared(remove), 1, id);
        Step(remove);
        for (const auto& kind : studyKinds) {
            sqlite3_stmt* const statement = Prepared(insert);
            sqlite3_bind_int(statement, 1, id);
            sqlite3_bind_text(statement, 2, kind.sKey.data(), static_cast<int>(kind.sKey.size()),
                              SQLITE_STATIC);
            sqlite3_bind_int(statement, 3, NextDuration());
            Step(insert);
        }
        Step(commit);
    }

    void Load(CNolSchedData& record) {
        sqlite3_stmt* const statement = Prepared(select);
        const auto number = [&](int column) { return sqlite3_column_int(statement, column); };
        const auto text = [&](int column) {
            return std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
        };
        sqlite3_bind_int(statement, 1, record.Id);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            auto item = std::make_shared<CNolOverride>();
            item->Initialize(number(0), text(1), number(2), number(3), number(4), number(5), text(6));
            record.AddNolOverride(item, item->OverrideType);
        }
        sqlite3_reset(statement);
    }

  private:
    enum Text { begin, remove, insert, commit, select };
    static constexpr auto texts = std::to_array<const char*>(
        {"BEGIN IMMEDIATE", "DELETE FROM NOL_Override WHERE NOL_OverrideId = ?",
         "INSERT INTO NOL_Override (NOL_OverrideId, Type, ScenarioId, Duration, Polling_Interval, "
         "Retrieve_Delay, ClearLog) VALUES (?, ?, 12, ?, NULL, 5, '')",
         "COMMIT", "SELECT * FROM NOL_Override WHERE NOL_OverrideId = ?"});

    sqlite3_stmt* Prepared(Text text) {
        if (prepared[text] == nullptr &&
            sqlite3_prepare_v2(connection, texts[text], -1, &prepared[text], nullptr) != SQLITE_OK)
            Fail(texts[text]);
        return prepared[text];
    }

    void Step(Text text) {
        if (sqlite3_step(Prepared(text)) != SQLITE_DONE) Fail(texts[text]);
        sqlite3_reset(prepared[text]);
    }

    sqlite3* connection = nullptr;
    std::array<sqlite3_stmt*, texts.size()> prepared{};
};

CNolSchedData& RecordWithOverrides() {
    static CNolSchedData record;
    if (record.Overrides().Count() > 0) return record;
    for (const auto& kind : studyKinds) {
        auto item = std::make_shared<CNolOverride>();
        item->Initialize(firstEntry, std::string(kind.sKey), 12, 60, -1, 5, "");
        record.AddNolOverride(std::move(item), std::string(kind.sKey));
    }
    return record;
}

// A store with rows of that many overrides, four an entry, beside the entries that are measured.
std::shared_ptr<Database> MakeStore(const std::string& address, int rows) {
    std::shared_ptr<Database> database = OpenDatabase(address);
    PrepareTables(*database);
    Transaction transaction(*database);
    database->Execute("WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i + 1 < " +
                      std::to_string(rows) +
                      ") INSERT INTO NOL_Override SELECT 1 + i / 4 + (i / 4 >= 499) * 8, 'Type ' || (i % 4), "
                      "12, 60, NULL, 5, "
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
    CNolSchedData& record = RecordWithOverrides();
    Transaction transaction(database);
    record.Id = NextEntry();
    for (const auto& [key, item] : record.Overrides()) item->Duration = NextDuration();
    record.SaveNolOverrides();
    transaction.Commit();
}

template <class Step>
void LoadBy(Step load) {
    CNolSchedData record;
    record.Id = NextEntry();
    load(record);
    if (record.Overrides().Count() != studyKinds.size()) Fail("overrides are missing");
}

void Load() { LoadBy(MSQL::LoadNolOverrides); }

void PlainSave(Plain& plain) { plain.Save(NextEntry()); }

void PlainLoad(Plain& plain) {
    LoadBy([&plain](CNolSchedData& record) { plain.Load(record); });
}

// A disk takes now more, now less for a durable commit; a median needs many.
constexpr double secondsOnDisk = 0.4;

// What waits for a disk is repeated by the watch.
benchmark::internal::Benchmark* OnDisk(benchmark::internal::Benchmark* measured) {
    return measured->UseRealTime()->MinTime(secondsOnDisk);
}

// The first save of each entry stands outside the measured time.
template <class Step>
benchmark::internal::Benchmark* MeasureOn(const std::string& name, const std::shared_ptr<Database>& database,
                                          Step step) {
    return benchmark::RegisterBenchmark(name.c_str(), [database, step](benchmark::State& state) {
        Use(database);
        for (int i = 0; i < entries; ++i) Save(*database);
        for (auto _ : state) step(*database);
    });
}

void MeasurePlatform(const std::string& name, const std::string& address, int rows) {
    const auto database = MakeStore(address, rows);
    auto* const save = MeasureOn("save " + name, database, [](Database& store) { Save(store); });
    MeasureOn("load " + name, database, [](Database&) { Load(); });
    if (address == inMemory) return;
    OnDisk(save);
    OnDisk(MeasureOn("both " + name, database, [](Database& store) {
        Save(store);
        Load();
    }));
}

void MeasureAnew(const std::shared_ptr<Plain>& plain) {
    Measure("plain save anew", [plain] {
        plain->Forget();
        PlainSave(*plain);
    });
    Measure("plain load anew", [plain] {
        plain->Forget();
        PlainLoad(*plain);
    });
}

void MeasurePlain(const std::string& name, const std::string& file, int rows) {
    const auto plain = std::make_shared<Plain>(file);
    if (file != inMemory) {
        MakeStore(file, rows);
    } else {
        plain->Execute(
            "CREATE TABLE NOL_Override (NOL_OverrideId INTEGER NOT NULL, Type TEXT NOT NULL, "
            "ScenarioId INTEGER, Duration INTEGER, Polling_Interval INTEGER, Retrieve_Delay INTEGER, "
            "ClearLog TEXT);"
            "CREATE INDEX NOL_Override_Id ON NOL_Override (NOL_OverrideId)");
    }
    for (int i = 0; i < entries; ++i) PlainSave(*plain);
    auto* const save = Measure("plain save " + name, [plain] { PlainSave(*plain); });
    Measure("plain load " + name, [plain] { PlainLoad(*plain); });
    if (file == inMemory) return MeasureAnew(plain);
    OnDisk(save);
    OnDisk(Measure("plain both " + name, [plain] {
        PlainSave(*plain);
        PlainLoad(*plain);
    }));
}

}  // namespace

int main(int argc, char** argv) {
    const TemporaryFolder folder;
    const auto file = [&folder](const char* name) { return (folder.path / name).string(); };
    std::vector<Claim> claims = {
        {"save four overrides, in memory / plain SQLite", "save memory", "plain save memory", 1.3, "", "",
         true},
        {"load four overrides, in memory / plain SQLite", "load memory", "plain load memory", 1.3, "", "",
         true},
        {"save them / plain SQLite that prepares anew", "save memory", "plain save anew", 1.3, "", "", true},
        {"load them / plain SQLite that prepares anew", "load memory", "plain load anew", 1.3, "", "", true}};
    MeasurePlatform("memory", inMemory, 0);
    MeasurePlain("memory", inMemory, 0);
    const Extent extent = ExtentOf(argc, argv);
    if (extent != Extent::Steady) {
        MeasurePlatform("file", file("platform.db"), 1000);
        MeasurePlain("file", file("plain.db"), 1000);
        claims.insert(
            claims.end(),
            {{"save four overrides to a file, durably / plain SQLite", "save file", "plain save file", 1.05},
             {"save and load them there / plain SQLite", "both file", "plain both file", 1.05},
             {"load them there / plain SQLite", "load file", "plain load file"}});
    }
    if (extent == Extent::Whole) {
        MeasurePlatform("1000000", file("million.db"), 1000000);
        claims.insert(
            claims.end(),
            {{"save four overrides among 1,000,000 / among 1,000", "save 1000000", "save file", 1.3},
             {"load four overrides among 1,000,000 / among 1,000", "load 1000000", "load file", 1.3}});
    }
    const int status = RunClaims(argc, argv, std::move(claims));
    InstallServices({});
    return status;
}
