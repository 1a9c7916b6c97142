#include "platform/postgres_database.h"

#include <poll.h>

#include <algorithm>
#include <array>

#include "NolSchedCtls/base/text.h"
#include "platform/libpq.h"
#include "platform/server_address.h"

namespace NolSchedCtls {

namespace {

using namespace Libpq;

// The numbers of the server's types of whole and broken numbers and of "t" and "f".
constexpr Oid typeBool = 16;
constexpr auto wholeTypes = std::to_array<Oid>({20, 21, 23});
constexpr auto brokenTypes = std::to_array<Oid>({700, 701});

constexpr int waitStep = 50;  // milliseconds, so that a window asked in between stays alive
constexpr const char* rolledBack = "the connection broke; the transaction was rolled back.";

struct KindOfState {
    std::string_view beginning;
    StoreError::Kind kind;
};

// By the beginning of the server's five letters, the longer ones first.
constexpr auto kindsOfStates = std::to_array<KindOfState>({{"53100", StoreError::Kind::Full},
                                                           {"53300", StoreError::Kind::Connection},
                                                           {"40001", StoreError::Kind::Busy},
                                                           {"40P01", StoreError::Kind::Busy},
                                                           {"55P03", StoreError::Kind::Busy},
                                                           {"57014", StoreError::Kind::Busy},
                                                           {"57P0", StoreError::Kind::Connection},
                                                           {"08", StoreError::Kind::Connection},
                                                           {"23", StoreError::Kind::Constraint},
                                                           {"XX00", StoreError::Kind::Corrupt}});

struct Close {
    void operator()(PGconn* connection) const { PQfinish(connection); }
    void operator()(PGresult* result) const { PQclear(result); }
    void operator()(PGcancel* cancel) const { PQfreeCancel(cancel); }
    void operator()(char* text) const { PQfreemem(text); }
    void operator()(PGnotify* notification) const { PQfreemem(notification); }
};
using Result = std::unique_ptr<PGresult, Close>;

StoreError::Kind KindOf(std::string_view state) {
    const auto begins = [state](const KindOfState& known) { return state.starts_with(known.beginning); };
    const auto* const found = std::ranges::find_if(kindsOfStates, begins);
    return found == kindsOfStates.end() ? StoreError::Kind::Other : found->kind;
}

// "?" outside of quotes becomes $1, $2 and so on.
std::string Numbered(std::string_view statement) {
    std::string numbered;
    int count = 0;
    char quote = '\0';
    for (const char letter : statement) {
        if (quote == '\0' && letter == '?') {
            numbered += '$' + std::to_string(++count);
            continue;
        }
        if (quote == letter)
            quote = '\0';
        else if (quote == '\0' && (letter == '\'' || letter == '"'))
            quote = letter;
        numbered += letter;
    }
    return numbered;
}

bool IsFailure(const PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    return status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK;
}

// Rows come whole: no later one can fail.
class PostgresRows : public StoreRows {
  public:
    PostgresRows(const std::string& storeA, Result resultA) : store(storeA), result(std::move(resultA)) {}

    bool AtEnd() const override { return row >= PQntuples(result.get()); }
    void MoveNext() override { ++row; }
    int ColumnCount() const override { return PQnfields(result.get()); }
    std::string_view ColumnName(int column) const override { return PQfname(result.get(), column); }
    ValueView View(int column) const override {
        if (PQgetisnull(result.get(), row, column) != 0) return {};
        const std::string_view text(PQgetvalue(result.get(), row, column),
                                    static_cast<std::size_t>(PQgetlength(result.get(), row, column)));
        const Oid type = PQftype(result.get(), column);
        if (type == typeBool) return std::int64_t{text == "t"};
        if (std::ranges::find(wholeTypes, type) != wholeTypes.end()) return *ParseWhole<std::int64_t>(text);
        double number = 0;
        if (std::ranges::find(brokenTypes, type) == brokenTypes.end()) return text;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }
    std::int64_t Changed() const override {
        return ParseWhole<std::int64_t>(PQcmdTuples(result.get())).value_or(0);
    }

  private:
    const std::string& Store() const override { return store; }

    const std::string& store;
    Result result;
    int row = 0;
};

class PostgresDatabase : public Database {
  public:
    PostgresDatabase(const std::string& address, std::string nameA) : Database(std::move(nameA)) {
        const char* const keywords[] = {"dbname", "client_encoding", nullptr};
        const char* const values[] = {address.c_str(), "UTF8", nullptr};
        connection.reset(PQconnectdbParams(keywords, values, 1));
        PQsetNoticeProcessor(
            connection.get(), [](void*, const char*) {}, nullptr);
        Prepare();
    }

    // Asked as statements look for it: along the search path, in any kind of table, as of the transaction.
    bool HasTable(std::string_view table) override {
        return !Open("SELECT 1 FROM pg_class WHERE oid = to_regclass(?)", {std::string(table)})->AtEnd();
    }
    // Those of extensions aside.
    bool IsEmpty() override {
        return Open(
                   "SELECT 1 FROM pg_class AS one WHERE relnamespace = "
                   "(SELECT oid FROM pg_namespace WHERE nspname = current_schema()) AND "
                   "relkind IN ('r', 'p', 'v', 'm', 'f') AND NOT EXISTS (SELECT 1 FROM pg_depend WHERE "
                   "objid = one.oid AND deptype = 'e') LIMIT 1")
            ->AtEnd();
    }
    std::string_view IdColumn() const override { return "SERIAL PRIMARY KEY"; }
    void SkipId(std::string_view table, std::int64_t id) override {
        const std::string numbers = "pg_get_serial_sequence(lower('" + std::string(table) + "'), 'id')";
        Open("SELECT CASE WHEN nextval(" + numbers + ") < ? THEN setval(" + numbers + ", ?) END", {id, id});
    }
    // A server's own default may be another one, in which a second maker of tables would not see the first.
    std::string_view BeginStatement(Access access) const override {
        return access == Access::Read ? "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"
                                      : "BEGIN ISOLATION LEVEL READ COMMITTED";
    }
    // Under any number that we alone use.
    void LockMaking() override { Execute("SELECT pg_advisory_xact_lock(1852795755)"); }
    void Announce(const std::string& change) override {
        Execute("NOTIFY nol_schedule, " + QuotedText(change));
    }
    bool HearsChange() override;
    bool IsCommitted(const std::string& transaction) override;

  private:
    std::unique_ptr<StoreRows> Run(std::string_view statement, const Values& values) override;
    std::string QuotedText(const std::string& text) const override {
        const std::unique_ptr<char, Close> quoted(
            PQescapeLiteral(connection.get(), text.data(), text.size()));
        if (!quoted) FailBy(nullptr);
        return quoted.get();
    }
    bool IsBroken() const { return PQstatus(connection.get()) != CONNECTION_OK; }
    // What every new connection needs; throws where there is none.
    void Prepare() {
        if (IsBroken()) FailBy(nullptr);
        const Result result = Send("SET datestyle TO 'ISO'", {});
        if (IsFailure(result.get())) FailBy(result.get());
    }
    void Reopen() {
        isListening = false;
        PQreset(connection.get());
        Prepare();
    }
    // Nothing if the statement could not be sent.
    Result Send(const std::string& statement, const Values& values);
    void Await(bool mayGiveUp);
    std::unique_ptr<StoreRows> Commit();
    void AskAfter(const std::string& transaction);
    [[noreturn]] void FailAsUnknown(const std::string& transaction) const;
    // The one way from a failure of the engine's to an error.
    [[noreturn]] void FailBy(const PGresult* result) const;

    std::unique_ptr<PGconn, Close> connection;
    bool isListening = false;
};

void PostgresDatabase::FailBy(const PGresult* result) const {
    const std::string told =
        result == nullptr ? PQerrorMessage(connection.get()) : PQresultErrorMessage(result);
    const char* const state = result == nullptr ? nullptr : PQresultErrorField(result, PG_DIAG_SQLSTATE);
    if (state == nullptr)
        Fail(told.empty() ? "the connection is broken." : told, StoreError::Kind::Connection);
    Fail(told, KindOf(state));
}

void PostgresDatabase::Await(bool mayGiveUp) {
    const auto began = std::chrono::steady_clock::now();
    while (PQisBusy(connection.get()) != 0) {
        pollfd link{PQsocket(connection.get()), POLLIN, 0};
        if (poll(&link, 1, waitStep) == 0 && !WaitsOn(began) && mayGiveUp) {
            const std::unique_ptr<PGcancel, Close> cancel(PQgetCancel(connection.get()));
            std::array<char, 256> trouble{};
            PQcancel(cancel.get(), trouble.data(), static_cast<int>(trouble.size()));
            return;  // the server answers with a failure
        }
        if (PQconsumeInput(connection.get()) == 0) return;
    }
}

// What was announced before the LISTEN is not heard: then anything may have changed.
bool PostgresDatabase::HearsChange() {
    if (PQconsumeInput(connection.get()) == 0 || IsBroken()) Reopen();
    bool isHeard = !isListening;
    if (!isListening) Execute("LISTEN nol_schedule");
    isListening = true;
    while (const std::unique_ptr<PGnotify, Close> change{PQnotifies(connection.get())})
        isHeard = isHeard || change->be_pid != PQbackendPID(connection.get());
    return isHeard;
}

// Not prepared beforehand: another session may alter a table, and a prepared "SELECT *" would fail from then
// on.
Result PostgresDatabase::Send(const std::string& statement, const Values& values) {
    std::vector<std::string> texts;
    for (const auto& value : values)
        texts.push_back(std::holds_alternative<double>(value) ? NumberText(std::get<double>(value))
                                                              : FieldToText({{}, value}));
    std::vector<const char*> given;
    for (std::size_t i = 0; i < values.size(); ++i)
        given.push_back(std::holds_alternative<std::monostate>(values[i]) ? nullptr : texts[i].c_str());
    const int isSent = values.empty() ? PQsendQuery(connection.get(), statement.c_str())
                                      : PQsendQueryParams(connection.get(), Numbered(statement).c_str(),
                                                          static_cast<int>(given.size()), nullptr,
                                                          given.data(), nullptr, nullptr, 0);
    if (isSent == 0) return nullptr;
    Await(statement != "COMMIT");
    Result last;
    while (Result next{PQgetResult(connection.get())})
        if (!last || !IsFailure(last.get())) last = std::move(next);
    return last;
}

std::unique_ptr<StoreRows> PostgresDatabase::Run(std::string_view statement, const Values& values) {
    if (IsInTransaction() && IsBroken()) Fail(rolledBack, StoreError::Kind::Connection);
    // What only reads or begins may be sent again on a new connection: it has left nothing behind.
    const bool isRepeatable =
        !IsInTransaction() && (statement.starts_with("SELECT") || statement.starts_with("BEGIN"));
    if (IsBroken()) Reopen();
    if (statement == "COMMIT") return Commit();
    Result result = Send(std::string(statement), values);
    if (IsFailure(result.get()) && IsBroken() && isRepeatable) {
        Reopen();
        result = Send(std::string(statement), values);
    }
    if (IsFailure(result.get()) && IsBroken() && !IsInTransaction() && !isRepeatable) FailAsUnknown({});
    if (IsFailure(result.get())) FailBy(result.get());
    return std::make_unique<PostgresRows>(Name(), std::move(result));
}

// Asks for the transaction's name before it is committed: if the answer is lost, the server knows by that
// name what became of it.
std::unique_ptr<StoreRows> PostgresDatabase::Commit() {
    const Result asked = Send("SELECT pg_current_xact_id_if_assigned()", {});
    if (IsBroken()) Fail(rolledBack, StoreError::Kind::Connection);
    const bool isNamed = !IsFailure(asked.get()) && PQgetisnull(asked.get(), 0, 0) == 0;
    Result result = Send("COMMIT", {});
    if (isNamed && IsFailure(result.get()) && IsBroken()) {
        AskAfter(PQgetvalue(asked.get(), 0, 0));
        return std::make_unique<PostgresRows>(Name(), nullptr);
    }
    if (IsFailure(result.get())) FailBy(result.get());
    // The server's answer to committing a transaction in which a statement had failed.
    if (PQcmdStatus(result.get()) == std::string_view("ROLLBACK"))
        Fail("the transaction was rolled back.", StoreError::Kind::Other);
    return std::make_unique<PostgresRows>(Name(), std::move(result));
}

// Returns if the transaction stands.
void PostgresDatabase::AskAfter(const std::string& transaction) {
    bool isCommitted = false;
    try {
        Reopen();
        isCommitted = IsCommitted(transaction);
    } catch (const StoreError&) {
        FailAsUnknown(transaction);
    }
    if (!isCommitted)
        Fail("the connection broke at the commit; nothing was saved.", StoreError::Kind::Connection);
}

// A standby that has taken over may never have heard of it.
bool PostgresDatabase::IsCommitted(const std::string& transaction) {
    constexpr std::string_view question =
        "SELECT CASE WHEN CAST(? AS xid8) > pg_current_xact_id() THEN 'aborted' "
        "ELSE pg_xact_status(CAST(? AS xid8)) END AS State";
    const auto began = std::chrono::steady_clock::now();
    for (;; poll(nullptr, 0, waitStep)) {
        const std::string state = FieldToText(Open(question, {transaction, transaction})->Fields("State"));
        if (state != "in progress") return state == "committed";
        if (!WaitsOn(began)) FailAsUnknown(transaction);
    }
}

void PostgresDatabase::FailAsUnknown(const std::string& transaction) const {
    throw StoreError(Name() + ": the connection broke; whether the change stands is not known.",
                     StoreError::Kind::Unknown, transaction);
}

}  // namespace

std::string ServerEngine() {
    const int version = PQlibVersion();
    return "libpq " + std::to_string(version / 10'000) + '.' + std::to_string(version % 10'000);
}

std::unique_ptr<Database> OpenServer(const std::string& address) {
    std::string name = NameOfServer(address);
    CheckServerAddress(address);
    return std::make_unique<PostgresDatabase>(address, std::move(name));
}

}  // namespace NolSchedCtls
