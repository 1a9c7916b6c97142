#include "platform/database.h"

#include <utf8.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <utility>

#include "NolSchedCtls/base/collection.h"
#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/services/provider.h"
#include "platform/postgres_database.h"
#include "platform/server_address.h"
#include "platform/sqlite_database.h"

namespace NolSchedCtls {

namespace {

// Most texts are plain, which is seen much faster.
bool IsUtf8(std::string_view text) {
    const auto isAscii = [](char letter) { return static_cast<unsigned char>(letter) < 0x80; };
    return std::ranges::all_of(text, isAscii) || utf8::is_valid(text.begin(), text.end());
}

// Broken texts are refused and not mended, so that what is read back is what was given.
void Check(std::string_view text) {
    if (!IsUtf8(text)) throw StoreError("The text " + Quoted(text) + " is not valid UTF-8.");
    if (const std::size_t end = text.find('\0'); end != std::string_view::npos)
        throw StoreError("The text " + Quoted(text.substr(0, end)) +
                         " holds a NUL character, which no store keeps.");
}

void Check(std::string_view statement, const Database::Values& values) {
    Check(statement);
    for (const auto& value : values)
        if (const auto* text = std::get_if<std::string>(&value)) Check(*text);
}

}  // namespace

LintelValue StoreRows::Value(int column) const {
    const auto copy = [](const auto& value) -> LintelValue {
        if constexpr (std::is_same_v<decltype(value), const std::string_view&>)
            return std::string(value);
        else
            return value;
    };
    return std::visit(copy, View(column));
}

void StoreRows::AskNames() const {
    names.resize(static_cast<std::size_t>(ColumnCount()));
    for (int column = 0; std::string_view & name : names) name = ColumnName(column++);
}

// Columns are asked for in their order as a rule, so the search begins behind the last one found.
int StoreRows::Place(std::string_view column) const {
    const auto& known = Names();
    for (std::size_t looked = 0; looked < known.size(); ++looked) {
        if (++lastPlace >= known.size()) lastPlace = 0;
        if (known[lastPlace] == column || EqualKeys(known[lastPlace], column))
            return static_cast<int>(lastPlace);
    }
    throw StoreError(Store() + ": the rows have no column " + std::string(column) + ".");
}

std::string_view StoreRows::Checked(int column, std::string_view text) const {
    if (IsUtf8(text)) return text;
    throw NolSchedError("The column " + std::string(ColumnName(column)) +
                        " holds a text that is not valid UTF-8.");
}

LintelField StoreRows::Field(int column) const {
    LintelField field{std::string(Names()[static_cast<std::size_t>(column)]), Value(column)};
    if (const auto* text = std::get_if<std::string>(&field.Value)) Checked(column, *text);
    return field;
}

std::int32_t StoreRows::Number(int column) const {
    const ValueView value = View(column);
    const auto* const whole = std::get_if<std::int64_t>(&value);
    if (whole != nullptr && std::in_range<std::int32_t>(*whole)) return static_cast<std::int32_t>(*whole);
    return LintelDb().FieldToNumber(Field(column), 0);
}

std::string_view StoreRows::Text(int column, std::string& copy) const {
    const ValueView value = View(column);
    if (const auto* text = std::get_if<std::string_view>(&value)) return Checked(column, *text);
    return copy = FieldToText(Field(column));
}

std::int64_t Database::Execute(std::string_view statement, const Values& values) {
    return Open(statement, values)->Changed();
}

std::unique_ptr<StoreRows> Database::Open(std::string_view query, const Values& values) {
    if (isAsking) Fail("the store is waiting for another act; nothing was done.", StoreError::Kind::Busy);
    Check(query, values);
    Statement.Raise(query);
    try {
        auto rows = Run(query, values);
        EndWait();
        return rows;
    } catch (...) {
        EndWait();
        throw;
    }
}

void Database::FailUntaken() const {
    Fail("the store did not take the change; nothing was done.", StoreError::Kind::Constraint);
}

// The store itself tells the id of the very row: a trigger may have drawn others, or kept the row out.
std::int32_t Database::Insert(std::string_view statement, const Values& values) {
    const auto rows = Open(std::string(statement) + " RETURNING Id", values);
    if (rows->AtEnd()) FailUntaken();
    const LintelField id = rows->Fields("Id");
    rows->MoveNext();
    const auto* number = std::get_if<std::int64_t>(&id.Value);
    if (number == nullptr || *number < 1 || *number > std::numeric_limits<std::int32_t>::max())
        Fail("the new row's id " + FieldToText(id) + " is no 32-bit number.", StoreError::Kind::Other);
    return static_cast<std::int32_t>(*number);
}

std::string Database::Literal(const LintelValue& value) const {
    if (std::holds_alternative<std::monostate>(value)) return "NULL";
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
    const auto& text = std::get<std::string>(value);
    Check(text);
    return QuotedText(text);
}

std::string Database::NumberText(double number) {
    std::array<char, 32> text{};
    return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

void Database::Fail(std::string_view trouble, StoreError::Kind kind) const {
    std::string line(trouble.substr(0, trouble.find('\n')));
    for (std::size_t at = 0; (at = line.find("  ", at)) != std::string::npos;) line.erase(at, 1);
    throw StoreError(name + ": " + line, kind);
}

bool Database::WaitsOn(std::chrono::steady_clock::time_point since) {
    using namespace std::chrono;
    hasWaited = true;
    const auto waited = duration_cast<milliseconds>(steady_clock::now() - since);
    if (!onWait) return waited < patience;
    isAsking = true;
    const bool goesOn = onWait(waited);
    isAsking = false;
    return goesOn;
}

void Database::EndWait() {
    if (std::exchange(hasWaited, false)) WaitEnded.Raise();
}

std::unique_ptr<Database> OpenDatabase(const std::string& address, MissingStore missing) {
    if (address.empty()) throw StoreError("The store has no name.");
    if (IsServerAddress(address)) return OpenServer(address);
    return OpenFile(address, missing);
}

Transaction::Transaction(Database& databaseA, Access access)
    : database(databaseA), isInner(databaseA.isInTransaction) {
    if (access == Access::Read && isInner) return;
    database.Execute(isInner ? "SAVEPOINT inner_work" : database.BeginStatement(access));
    isOpen = database.isInTransaction = true;
}

void Transaction::Commit() {
    database.Execute(isInner ? "RELEASE SAVEPOINT inner_work" : "COMMIT");
    isOpen = false;
    database.isInTransaction = isInner;
}

Transaction::~Transaction() {
    if (!isOpen) return;
    try {
        database.Execute(isInner ? "ROLLBACK TO SAVEPOINT inner_work" : "ROLLBACK");
        if (isInner) database.Execute("RELEASE SAVEPOINT inner_work");
    } catch (const NolSchedError&) {
        // The store has rolled back by itself or is gone; the failure that led here is being told.
    }
    database.isInTransaction = isInner;
}

}  // namespace NolSchedCtls
