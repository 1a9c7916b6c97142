#include "platform/schema.h"

#include <algorithm>
#include <span>
#include <utility>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/records/entry_columns.h"

namespace NolSchedCtls {

namespace {

using TwoTexts = std::pair<std::string_view, std::string_view>;

constexpr auto sampleDocuments = std::to_array<TwoTexts>({{"NOL Group", "North Cells"},
                                                          {"NOL Group", "South Cells"},
                                                          {"NOL Group", "Core Sites"},
                                                          {"Scenario", "Baseline"},
                                                          {"Scenario", "Busy Hour"},
                                                          {"Scenario", "Drive Test"}});

constexpr auto defaultSettings = std::to_array<TwoTexts>({{MAppConstants::maxPurgeInterval, "365"},
                                                          {MAppConstants::autoPurgeRequired, "N"},
                                                          {periodMinutes, "60"}});

struct Table {
    std::string_view name;
    std::string columns;
    std::string_view filled = {};  // the columns of its first rows
    std::span<const TwoTexts> rows = {};
};

// By the type of the property; the engines all know these words.
std::string ScheduleColumns(const std::string& idColumn) {
    struct TypeWord {
        std::string_view operator()(const NumberColumn&) const { return " INTEGER NOT NULL, "; }
        std::string_view operator()(const TextColumn&) const { return " TEXT NOT NULL, "; }
        std::string_view operator()(const DateColumn&) const { return " TIMESTAMP, "; }
    };
    std::string columns = idColumn + ", ";
    for (const auto& column : std::span(entryColumns).subspan(1))
        columns.append(NameOf(column)).append(std::visit(TypeWord{}, column));
    return columns + "Version INTEGER NOT NULL, SavedBy TEXT NOT NULL, SavedAt TIMESTAMP NOT NULL";
}

std::vector<Table> TablesOf(const Database& database, Samples samples) {
    const std::string idColumn = "Id " + std::string(database.IdColumn());
    return {{"NOL_Override",
             "NOL_OverrideId INTEGER NOT NULL, Type TEXT NOT NULL, ScenarioId INTEGER, Duration INTEGER, "
             "Polling_Interval INTEGER, Retrieve_Delay INTEGER, ClearLog TEXT"},
            {"NOL_Document", idColumn + ", Type TEXT NOT NULL, Name TEXT NOT NULL, UNIQUE (Type, Name)",
             "Type, Name",
             samples == Samples::Documents ? std::span<const TwoTexts>(sampleDocuments)
                                           : std::span<const TwoTexts>()},
            {"NOL_Setting", "Name TEXT PRIMARY KEY, Value TEXT NOT NULL", "Name, Value", defaultSettings},
            {"NOL_Schedule", ScheduleColumns(idColumn)}};
}

void Make(Database& database, const Table& table) {
    const std::string name(table.name);
    database.Execute("CREATE TABLE " + name + " (" + table.columns + ")");
    for (const auto& [first, second] : table.rows)
        database.Execute("INSERT INTO " + name + " (" + std::string(table.filled) + ") VALUES (?, ?)",
                         {std::string(first), std::string(second)});
}

bool AreThere(Database& database, const std::vector<Table>& tables) {
    const auto isThere = [&database](const Table& table) { return database.HasTable(table.name); };
    return std::ranges::all_of(tables, isThere);
}

// A store is made as a whole or not at all: what is left of a damaged one is not mixed with new tables, and
// nothing is made beside the tables of others.
void RefuseUnlessEmpty(Database& database, const std::vector<Table>& tables) {
    if (database.IsEmpty()) return;
    const auto isMissing = [&database](const Table& table) { return !database.HasTable(table.name); };
    if (std::ranges::all_of(tables, isMissing))
        throw StoreError(database.Name() + ": holds the tables of something else and no schedule entries.");
    const auto missing = std::ranges::find_if(tables, isMissing);
    throw StoreError(database.Name() + ": the table " + std::string(missing->name) + " is missing.");
}

Table HolidayTable() { return {holidayTable, "Day DATE PRIMARY KEY, Name TEXT NOT NULL"}; }

}  // namespace

bool PrepareTables(Database& database, MissingStore missing, Samples samples) {
    const auto tables = TablesOf(database, samples);
    {
        const Transaction reading(database, Access::Read);
        if (AreThere(database, tables)) return false;
        RefuseUnlessEmpty(database, tables);
    }
    if (missing == MissingStore::Refuse)
        throw StoreError(database.Name() + ": there is no store in it yet.", StoreError::Kind::Missing);
    Transaction transaction(database);
    database.LockMaking();
    if (AreThere(database, tables)) return false;  // another process was faster
    RefuseUnlessEmpty(database, tables);
    for (const Table& table : tables) Make(database, table);
    Make(database, HolidayTable());
    database.Execute("CREATE INDEX NOL_Override_Id ON NOL_Override (NOL_OverrideId)");
    transaction.Commit();
    return true;
}

void MakeHolidayTable(Database& database) {
    database.LockMaking();
    if (!database.HasTable(holidayTable)) Make(database, HolidayTable());
}

}  // namespace NolSchedCtls
