#include "platform/sqlite_database.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <list>
#include <thread>
#include <utility>

#include "platform/glob.h"

namespace NolSchedCtls {

namespace {

constexpr std::size_t mostIdle = 32;
constexpr std::size_t longestIdle = 4096;  // a longer statement bears its values and hardly comes again

StoreError::Kind KindOf(int result) {
    using enum StoreError::Kind;
    switch (result & 0xFF) {  // the rest tells more of the same
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return Busy;
        case SQLITE_CONSTRAINT:
            return Constraint;
        case SQLITE_CANTOPEN:
            return Connection;
        case SQLITE_FULL:
            return Full;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return Corrupt;
        default:
            return Other;
    }
}

struct Binding {
    sqlite3_stmt* statement;
    int place;

    int operator()(std::monostate) const { return sqlite3_bind_null(statement, place); }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, place, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, place, number); }
    int operator()(const std::string& text) const {
        return sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
};

struct Close {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

// In a folder that is there: else it could not be made either.
bool IsMissing(const std::string& path) {
    std::error_code trouble;
    const auto folder = std::filesystem::absolute(path, trouble).parent_path();
    return std::filesystem::is_directory(folder, trouble) && !std::filesystem::exists(path, trouble) &&
           !trouble;
}

struct Prepared {
    std::string text;
    std::unique_ptr<sqlite3_stmt, Close> statement;
};
// One that is in use stands in a list of its own, so that it goes back as it is.
using Statements = std::list<Prepared>;

class SqliteDatabase : public Database {
  public:
    SqliteDatabase(const std::string& path, MissingStore missing) : Database(path) {
        constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
        const int make = missing == MissingStore::Make ? SQLITE_OPEN_CREATE : 0;
        sqlite3* opened = nullptr;
        const int result = sqlite3_open_v2(path.c_str(), &opened, flags | make, nullptr);
        connection.reset(opened);  // also of one that could not be opened, to tell why
        if (result != SQLITE_OK && make == 0 && IsMissing(path))
            Fail("there is no such store.", StoreError::Kind::Missing);
        Check(result);
        sqlite3_busy_handler(opened, Wait, this);
    }

    bool HasTable(std::string_view table) override {
        return !Open(
                    "SELECT 1 FROM sqlite_master WHERE type IN ('table', 'view') AND name = ? COLLATE NOCASE",
                    {std::string(table)})
                    ->AtEnd();
    }
    bool IsEmpty() override {
        return Open("SELECT 1 FROM sqlite_master WHERE name NOT LIKE 'sqlite\\_%' ESCAPE '\\'")->AtEnd();
    }
    std::string_view IdColumn() const override { return "INTEGER PRIMARY KEY AUTOINCREMENT"; }
    void SkipId(std::string_view /*table*/, std::int64_t /*id*/) override {}  // it does by itself
    // One that writes takes the lock at the start: a reader that turns writer could not wait for another
    // writer.
    std::string_view BeginStatement(Access access) const override {
        return access == Access::Read ? "BEGIN" : "BEGIN IMMEDIATE";
    }
    void LockMaking() override {}                  // transactions that write exclude each other
    void Announce(const std::string&) override {}  // HearsChange hears every commit
    bool HearsChange() override {
        int isMoved = 0;
        sqlite3_file_control(connection.get(), nullptr, SQLITE_FCNTL_HAS_MOVED, &isMoved);
        if (isMoved != 0) Fail("the file was moved or deleted.", StoreError::Kind::Other);
        return std::exchange(heardState, Open("PRAGMA data_version")->Value(0)) != heardState;
    }

    // The one way from a result of the engine's to an error.
    void Check(int result) const {
        if (result == SQLITE_OK) return;
        Fail(connection ? sqlite3_errmsg(connection.get()) : sqlite3_errstr(result), KindOf(result));
    }
    std::int64_t Changes() const { return sqlite3_changes64(connection.get()); }
    void GiveBack(Statements& prepared);

  private:
    std::unique_ptr<StoreRows> Run(std::string_view statement, const Values& values) override;
    std::string QuotedText(const std::string& text) const override {
        std::string quoted(1, '\'');
        for (const char letter : text) {
            if (letter == '\'') quoted += letter;
            quoted += letter;
        }
        quoted += '\'';
        return quoted;
    }
    Prepared Prepare(std::string_view statement) const;
    Statements Taken(std::string_view statement);
    static int Wait(void* self, int count) noexcept;

    std::unique_ptr<sqlite3, Close> connection;
    Statements idle;         // the latest used first
    LintelValue heardState;  // another one after a commit of another connection
    std::chrono::steady_clock::time_point waitBegan;
};

// Rows come one by one, as they are asked for.
class SqliteRows : public StoreRows {
  public:
    SqliteRows(SqliteDatabase& databaseA, Statements preparedA)
        : database(databaseA), prepared(std::move(preparedA)), statement(prepared.front().statement.get()) {
        SqliteRows::MoveNext();
    }
    ~SqliteRows() override { database.GiveBack(prepared); }
    SqliteRows(const SqliteRows&) = delete;
    SqliteRows& operator=(const SqliteRows&) = delete;

    bool AtEnd() const override { return atEnd; }
    void MoveNext() override {
        const int result = sqlite3_step(statement);
        atEnd = result != SQLITE_ROW;
        if (atEnd && result != SQLITE_DONE) database.Check(result);
    }
    int ColumnCount() const override { return sqlite3_column_count(statement); }
    std::string_view ColumnName(int column) const override { return sqlite3_column_name(statement, column); }
    ValueView View(int column) const override {
        sqlite3_value* const value = sqlite3_column_value(statement, column);
        switch (sqlite3_value_type(value)) {
            case SQLITE_NULL:
                return {};
            case SQLITE_INTEGER:
                return std::int64_t{sqlite3_value_int64(value)};
            case SQLITE_FLOAT:
                return sqlite3_value_double(value);
            default:
                return std::string_view(static_cast<const char*>(sqlite3_value_blob(value)),
                                        static_cast<std::size_t>(sqlite3_value_bytes(value)));
        }
    }
    std::int64_t Changed() const override { return database.Changes(); }

  private:
    const std::string& Store() const override { return database.Name(); }

    SqliteDatabase& database;
    Statements prepared;
    sqlite3_stmt* statement;
    bool atEnd = false;
};

// Steps so short that a window asked in between stays alive.
int SqliteDatabase::Wait(void* self, int count) noexcept {
    auto& database = *static_cast<SqliteDatabase*>(self);
    if (count == 0) database.waitBegan = std::chrono::steady_clock::now();
    try {
        if (!database.WaitsOn(database.waitBegan)) return 0;
    } catch (...) {
        return 0;  // no exception may pass through the engine: the statement is given up
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(count + 1, 20)));
    return 1;
}

Prepared SqliteDatabase::Prepare(std::string_view statement) const {
    sqlite3_stmt* made = nullptr;
    const char* rest = nullptr;
    const int result = sqlite3_prepare_v3(connection.get(), statement.data(),
                                          static_cast<int>(statement.size()), 0, &made, &rest);
    Prepared prepared{std::string(statement), std::unique_ptr<sqlite3_stmt, Close>(made)};
    Check(result);
    const std::string_view unread = statement.substr(static_cast<std::size_t>(rest - statement.data()));
    if (made == nullptr || unread.find_first_not_of("; \n") != std::string_view::npos)
        Fail("not one statement: " + Quoted(statement), StoreError::Kind::Other);
    return prepared;
}

Statements SqliteDatabase::Taken(std::string_view statement) {
    Statements taken;
    const auto found = std::ranges::find(idle, statement, &Prepared::text);
    if (found == idle.end())
        taken.push_back(Prepare(statement));
    else
        taken.splice(taken.end(), idle, found);
    return taken;
}

void SqliteDatabase::GiveBack(Statements& prepared) {
    if (prepared.front().text.size() > longestIdle) return;
    sqlite3_reset(prepared.front().statement.get());
    sqlite3_clear_bindings(prepared.front().statement.get());
    idle.splice(idle.begin(), prepared);
    if (idle.size() > mostIdle) idle.pop_back();
}

std::unique_ptr<StoreRows> SqliteDatabase::Run(std::string_view statement, const Values& values) {
    // A full or broken disk may have ended the transaction: what follows must not be stored on its own.
    if (IsInTransaction() && sqlite3_get_autocommit(connection.get()) != 0)
        Fail("the transaction was rolled back.", StoreError::Kind::Other);
    Statements prepared = Taken(statement);
    sqlite3_stmt* const made = prepared.front().statement.get();
    if (sqlite3_bind_parameter_count(made) != static_cast<int>(values.size()))
        Fail("not as many values as places: " + Quoted(statement), StoreError::Kind::Other);
    for (int place = 1; const auto& value : values) Check(std::visit(Binding{made, place++}, value));
    return std::make_unique<SqliteRows>(*this, std::move(prepared));
}

}  // namespace

bool MatchesGlob(const std::string& text, const std::string& pattern) {
    return sqlite3_strglob(pattern.c_str(), text.c_str()) == 0;
}

std::string FileEngine() { return std::string("SQLite ") + sqlite3_libversion(); }

std::unique_ptr<Database> OpenFile(const std::string& path, MissingStore missing) {
    return std::make_unique<SqliteDatabase>(path, missing);
}

}  // namespace NolSchedCtls
