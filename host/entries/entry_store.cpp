#include "host/entries/entry_store.h"

#include <span>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls {

namespace {

// All but Id, which the store gives.
constexpr auto writtenColumns = std::span(entryColumns).subspan(1);

LintelValue DateValue(DateTime dateTime) {
    if (dateTime == 0) return {};  // not set
    std::string text = IsoText(dateTime);
    text[text.find('T')] = ' ';
    return text;
}

// The row's value of a property.
struct ToRowValue {
    const CNolSchedData& record;

    LintelValue operator()(const Column<std::int32_t>& column) const {
        return std::int64_t{record.*column.pProperty};
    }
    LintelValue operator()(const Column<std::string>& column) const { return record.*column.pProperty; }
    LintelValue operator()(const Column<DateTime>& column) const {
        if (column.pProperty == &CNolSchedData::FirstDateTime)
            return DateValue(record.DBFirstDateTime().Value);
        if (column.pProperty == &CNolSchedData::FinalDateTime)
            return DateValue(record.DBFinalDateTime().Value);
        return DateValue(record.*column.pProperty);
    }
};

struct FromRow {
    const ILintelRows& rows;
    CNolSchedData& record;

    void operator()(const Column<std::int32_t>& column) const {
        record.*column.pProperty = LintelDb().FieldToNumber(rows.Fields(column.sName), 0);
    }
    void operator()(const Column<std::string>& column) const {
        record.*column.pProperty = FieldToText(rows.Fields(column.sName));
    }
    void operator()(const Column<DateTime>& column) const {
        const std::string text = FieldToText(rows.Fields(column.sName));
        record.*column.pProperty =
            Explained([&] { return text.empty() ? 0 : ParseIso(text); },
                      [&] { return "The column " + std::string(column.sName) + " is no date: "; });
    }
};

void ReadRow(const ILintelRows& rows, CNolSchedData& record) {
    for (const auto& column : entryColumns) std::visit(FromRow{rows, record}, column);
}

// Runs a step of reading; false, and its trouble with the entry, for a value that cannot be read. What the
// store itself fails in is no trouble of the row.
template <class Step>
bool Reads(ListedEntry& entry, Step step) {
    try {
        step();
        return true;
    } catch (const StoreError&) {
        throw;
    } catch (const NolSchedError& error) {
        if (entry.trouble.empty()) entry.trouble = error.what();
        return false;
    }
}

void ReadListed(const ILintelRows& rows, ListedEntry& entry) {
    if (Reads(entry, [&] { ReadRow(rows, *entry.record); })) return;
    entry.record = std::make_shared<CNolSchedData>();
    Reads(entry, [&] { entry.record->EditorName = FieldToText(rows.Fields("EditorName")); });
}

void ReadKind(const ILintelRows& rows, ListedEntry& entry) {
    Reads(entry, [&] {
        std::string kind = FieldToText(rows.Fields("OverrideType"));
        if (!kind.empty()) entry.kinds.push_back(std::move(kind));
    });
}

std::int64_t IdOf(const ILintelRows& rows) {
    const auto id = rows.Fields("Id").Value;
    const auto* const number = std::get_if<std::int64_t>(&id);
    return number == nullptr ? 0 : *number;
}

InitEditArguments ArgumentsOf(const CNolSchedData& row) {
    InitEditArguments arguments;
    arguments.ScenarioTypeA = std::make_shared<CaddisScenarioType>();
    const auto copy = [&](const auto& column) {
        if (column.pArgument != nullptr) arguments.*column.pArgument = row.*column.pProperty;
    };
    for (const auto& column : entryColumns) std::visit(copy, column);
    return arguments;
}

Database::Values RowValues(const CNolSchedData& record, std::int32_t version, const std::string& user) {
    Database::Values values;
    for (const auto& column : writtenColumns) values.push_back(std::visit(ToRowValue{record}, column));
    values.insert(values.end(), {std::int64_t{version}, user, DateValue(Clock().Now())});
    return values;
}

const std::string& InsertStatement() {
    static const std::string statement = "INSERT INTO NOL_Schedule (" + Joined(writtenColumns, NameOf) +
                                         ", Version, SavedBy, SavedAt) VALUES (" +
                                         Joined(writtenColumns, [](const EntryColumn&) { return "?"; }) +
                                         ", ?, ?, ?)";
    return statement;
}

const std::string& UpdateStatement() {
    static const std::string statement =
        "UPDATE NOL_Schedule SET " + Joined(writtenColumns, NameOf, " = ?, ") +
        " = ?, Version = ?, SavedBy = ?, SavedAt = ? WHERE Id = ? AND Version = ?";
    return statement;
}

}  // namespace

EntryStore::EntryStore(std::shared_ptr<Database> databaseA, std::string userA)
    : database(std::move(databaseA)), user(std::move(userA)) {}

void EntryStore::Opening(std::int32_t id, const std::function<void()>& step) const {
    try {
        step();
    } catch (const StoreError&) {
        throw;
    } catch (const NolSchedError& error) {
        const std::string entry = id == 0 ? "new entry" : "entry " + std::to_string(id);
        throw StoreError(database->Name() + ": " + entry + ": " + error.what());
    }
}

StoredEntry EntryStore::Load(std::int32_t id) const {
    CNolSchedData row;
    std::int32_t version = 0;
    auto record = std::make_shared<CNolSchedData>();
    const Transaction reading(*database, Access::Read);
    {
        const auto rows = database->Open("SELECT * FROM NOL_Schedule WHERE Id = ?", {std::int64_t{id}});
        if (rows->AtEnd())
            throw RequestError("There is no entry " + std::to_string(id) + " in " + database->Name() + ".");
        Opening(id, [&] {
            ReadRow(*rows, row);
            version = LintelDb().FieldToNumber(rows->Fields("Version"), 0);
        });
    }
    Opening(id, [&] { record->InitEdit(ArgumentsOf(row)); });
    record->NextRunDate = row.NextRunDate;
    record->LastRunDate = row.LastRunDate;
    return {std::move(record), version};
}

std::int32_t EntryStore::Write(CNolSchedData& record, std::int32_t version) {
    if (record.IsNew) {
        record.Id = database->Insert(InsertStatement(), RowValues(record, 1, user));
        database->Announce("saved " + std::to_string(record.Id));
        return 1;
    }
    auto values = RowValues(record, version + 1, user);
    values.insert(values.end(), {std::int64_t{record.Id}, std::int64_t{version}});
    if (database->Execute(UpdateStatement(), values) != 1) TellOvertaken(record);
    database->Announce("saved " + std::to_string(record.Id));
    return version + 1;
}

void EntryStore::TellOvertaken(const CNolSchedData& record) const {
    const auto rows =
        database->Open("SELECT SavedBy, SavedAt FROM NOL_Schedule WHERE Id = ?", {std::int64_t{record.Id}});
    const std::string entry = "The entry " + Quoted(record.EditorName) + " was ";
    if (rows->AtEnd()) throw OvertakenError(entry + "deleted by another user since it was opened.");
    throw OvertakenError(entry + "saved by " + FieldToText(rows->Fields("SavedBy")) + " at " +
                         FieldToText(rows->Fields("SavedAt")) + ", after it was opened here.");
}

void EntryStore::Delete(std::int32_t id) {
    Transaction transaction(*database);
    if (database->Execute("DELETE FROM NOL_Schedule WHERE Id = ?", {std::int64_t{id}}) != 1)
        throw RequestError("There is no entry " + std::to_string(id) + " in " + database->Name() + ".");
    database->Execute("DELETE FROM NOL_Override WHERE NOL_OverrideId = ?", {std::int64_t{id}});
    database->Announce("deleted " + std::to_string(id));
    transaction.Commit();
}

// Under the names that the columns bear here: a server gives them back in small letters.
std::vector<std::vector<LintelField>> EntryStore::OverrideRows(std::int32_t id) const {
    constexpr auto columns = std::to_array<const char*>({"NOL_OverrideId", "Type", "ScenarioId", "Duration",
                                                         "Polling_Interval", "Retrieve_Delay", "ClearLog"});
    std::vector<std::vector<LintelField>> found;
    const auto rows = database->Open("SELECT * FROM NOL_Override WHERE NOL_OverrideId = ? ORDER BY Type",
                                     {std::int64_t{id}});
    for (; !rows->AtEnd(); rows->MoveNext()) {
        auto& row = found.emplace_back();
        for (const char* column : columns) row.push_back({column, rows->Fields(column).Value});
    }
    return found;
}

std::int64_t EntryStore::Count() const {
    const auto rows = database->Open("SELECT COUNT(*) AS Entries FROM NOL_Schedule");
    return LintelDb().FieldToNumber(rows->Fields("Entries"), 0);
}

void EntryStore::ForEach(const std::function<void(const ListedEntry&)>& visit, std::int64_t afterId,
                         std::int64_t limit) const {
    const auto rows = database->Open(
        "SELECT Entry.*, NOL_Document.Name AS GroupName, NOL_Override.Type AS OverrideType FROM "
        "(SELECT * FROM NOL_Schedule WHERE Id > CAST(? AS BIGINT) ORDER BY Id LIMIT ?) AS Entry "
        "LEFT JOIN NOL_Document ON NOL_Document.Id = Entry.RptGrpId AND NOL_Document.Type = 'NOL Group' "
        "LEFT JOIN NOL_Override ON NOL_Override.NOL_OverrideId = Entry.Id ORDER BY Entry.Id, "
        "NOL_Override.Type",
        {afterId, limit});
    ListedEntry entry{0, std::make_shared<CNolSchedData>(), {}, {}, {}};
    while (!rows->AtEnd()) {
        entry.id = IdOf(*rows);
        entry.trouble.clear();
        entry.group.clear();
        entry.kinds.clear();
        ReadListed(*rows, entry);
        Reads(entry, [&] { entry.group = FieldToText(rows->Fields("GroupName")); });
        do {
            ReadKind(*rows, entry);
            rows->MoveNext();
        } while (!rows->AtEnd() && IdOf(*rows) == entry.id);
        visit(entry);
    }
}

}  // namespace NolSchedCtls
