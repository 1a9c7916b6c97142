// A store in a file, on SQLite's own interface.
#pragma once

#include <sqlite3.h>

#include <list>

#include "platform/database.h"

namespace NolSchedCtls {

class SqliteDatabase : public Database {
  public:
    explicit SqliteDatabase(const std::string& path);

    bool HasTable(std::string_view table) override;
    std::string_view IdColumn() const override { return "INTEGER PRIMARY KEY AUTOINCREMENT"; }
    std::string_view BeginStatement(Access access) const override;
    void LockTableMaking() override {}  // transactions that write exclude each other

  private:
    friend class SqliteRows;

    struct Close {
        void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    struct Prepared {
        std::string text;
        std::unique_ptr<sqlite3_stmt, Close> statement;
    };

    std::unique_ptr<StoreRows> Run(std::string_view statement, const Values& values) override;
    std::string QuotedText(const std::string& text) const override;
    Prepared Prepare(std::string_view statement);
    Prepared Taken(std::string_view statement);
    void GiveBack(Prepared prepared);
    void Bind(sqlite3_stmt* statement, const Values& values) const;
    // The one way from a result of the engine's to an error.
    void Check(int result) const;
    static int Wait(void* database, int count) noexcept;

    std::unique_ptr<sqlite3, Close> connection;
    std::list<Prepared> idle;  // the latest used first
    std::chrono::steady_clock::time_point waitBegan;
};

std::unique_ptr<Database> OpenFile(const std::string& path);

}  // namespace NolSchedCtls
