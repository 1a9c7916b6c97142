// A store on a server, on PostgreSQL's own interface.
#pragma once

#include <libpq-fe.h>

#include "platform/database.h"

namespace NolSchedCtls {

// A connection that broke is opened anew when no transaction is open.
class PostgresDatabase : public Database {
  public:
    PostgresDatabase(const std::string& address, std::string nameA);

    bool HasTable(std::string_view table) override;
    std::string_view IdColumn() const override { return "SERIAL PRIMARY KEY"; }
    std::string_view BeginStatement(Access access) const override;
    void LockTableMaking() override;

  private:
    struct Close {
        void operator()(PGconn* opened) const { PQfinish(opened); }
        void operator()(PGresult* result) const { PQclear(result); }
    };
    using Result = std::unique_ptr<PGresult, Close>;
    friend class PostgresRows;

    std::unique_ptr<StoreRows> Run(std::string_view statement, const Values& values) override;
    std::string QuotedText(const std::string& text) const override;
    bool IsBroken() const { return PQstatus(connection.get()) != CONNECTION_OK; }
    // What every new connection needs; throws where there is none.
    void Prepare();
    // Nothing if the statement could not be sent.
    Result Send(const std::string& statement, const Values& values);
    void Await(bool mayGiveUp);
    // The one way from a failure of the engine's to an error.
    [[noreturn]] void FailBy(const PGresult* result, std::string_view statement) const;

    std::unique_ptr<PGconn, Close> connection;
};

// Also of one that no server can have: it never becomes a file's name.
bool IsServerAddress(std::string_view address);
// Throws StoreError for what is no address of a server, without the address: it may hold a password.
std::unique_ptr<Database> OpenServer(const std::string& address);

}  // namespace NolSchedCtls
