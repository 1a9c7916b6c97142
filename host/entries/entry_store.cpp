#include "host/entries/entry_store.h"

#include <algorithm>
#include <span>
#include <utility>

#include "NolSchedCtls/base/text.h"
#include "NolSchedCtls/records/entry_columns.h"
#include "NolSchedCtls/records/study_kinds.h"
#include "NolSchedCtls/services/provider.h"
#include "host/entries/process.h"

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

// The row's value of a property, as the record was read from it.
struct ReadValue {
    const CNolSchedData& record;

    LintelValue operator()(const NumberColumn& column) const {
        return std::int64_t{record.*column.pProperty};
    }
    LintelValue operator()(const TextColumn& column) const { return record.*column.pProperty; }
    LintelValue operator()(const DateColumn& column) const { return DateValue(record.*column.pProperty); }
};

// The same, as the record is to be stored.
struct WrittenValue : ReadValue {
    using ReadValue::operator();
    LintelValue operator()(const DateColumn& column) const {
        if (column.pProperty == &CNolSchedData::FirstDateTime)
            return DateValue(record.DBFirstDateTime().Value);
        if (column.pProperty == &CNolSchedData::FinalDateTime)
            return DateValue(record.DBFinalDateTime().Value);
        return ReadValue::operator()(column);
    }
};

// Reads one property after the other, each from its column's place.
struct FromRow {
    const StoreRows& rows;
    const int* place;
    CNolSchedData& record;
    std::string text = {};

    void operator()(const NumberColumn& column) { record.*column.pProperty = rows.Number(*place++); }
    void operator()(const TextColumn& column) { record.*column.pProperty = rows.Text(*place++, text); }
    void operator()(const DateColumn& column) {
        const std::string_view date = rows.Text(*place++, text);
        record.*column.pProperty =
            Explained([&] { return date.empty() ? 0 : ParseIso(date); },
                      [&] { return "The column " + std::string(column.sName) + " is no date: "; });
    }
};

using Places = std::array<int, entryColumns.size()>;

Places PlacesIn(const StoreRows& rows) {
    Places places;
    std::ranges::transform(entryColumns, places.begin(),
                           [&rows](const EntryColumn& column) { return rows.Place(NameOf(column)); });
    return places;
}

void ReadRow(const StoreRows& rows, const Places& places, CNolSchedData& record) {
    FromRow fromRow{rows, places.data(), record};
    for (const auto& column : entryColumns) std::visit(fromRow, column);
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

// The rows of the list as entries, which may have several each. Where the columns stand is looked up once.
class ListReader {
  public:
    explicit ListReader(const StoreRows& rowsA) : rows(rowsA) {}

    std::int64_t Id() const {
        const ValueView value = rows.View(own.front());
        const auto* const id = std::get_if<std::int64_t>(&value);
        return id == nullptr ? 0 : *id;
    }

    // All but the kinds.
    void Read(ListedEntry& entry) {
        entry.id = Id();
        entry.trouble.clear();
        entry.group.clear();
        entry.kinds.clear();
        ReadRecord(entry);
        ReadSave(entry);
        Reads(entry, [&] { entry.group = rows.Text(group, text); });
    }

    void ReadKind(ListedEntry& entry) {
        Reads(entry, [&] {
            const std::string_view read = rows.Text(kind, text);
            if (!read.empty()) entry.kinds.emplace_back(read);
        });
    }

  private:
    void ReadRecord(ListedEntry& entry) {
        if (entry.record.use_count() != 1) entry.record = std::make_shared<CNolSchedData>();
        if (Reads(entry, [&] { ReadRow(rows, own, *entry.record); })) return;
        entry.record = std::make_shared<CNolSchedData>();
        Reads(entry, [&] { entry.record->EditorName = rows.Text(name, text); });
    }

    // No trouble of the entry, whatever stands there.
    void ReadSave(ListedEntry& entry) {
        ListedEntry unread;
        entry.savedBy.clear();
        entry.savedAt = 0;
        Reads(unread, [&] {
            entry.savedBy = rows.Text(savedBy, text);
            entry.savedAt = ParseIso(rows.Text(savedAt, text));
        });
    }

    const StoreRows& rows;
    const Places own = PlacesIn(rows);
    const int name = rows.Place("EditorName");
    const int savedBy = rows.Place("SavedBy");
    const int savedAt = rows.Place("SavedAt");
    const int group = rows.ColumnCount() - 2;  // after those of the entry, which may bear any name
    const int kind = rows.ColumnCount() - 1;
    std::string text;
};

EntryStore::Rows TakeRows(StoreRows& rows) {
    EntryStore::Rows taken;
    for (; !rows.AtEnd(); rows.MoveNext()) {
        auto& row = taken.emplace_back();
        for (int column = 0; column < rows.ColumnCount(); ++column)
            row.push_back({std::string(rows.ColumnName(column)), rows.Value(column)});
    }
    return taken;
}

// Other programs may have given their columns any name.
std::string QuotedName(const LintelField& column) {
    std::string quoted = "\"";
    for (const char letter : column.Name) quoted.append(letter == '"' ? 2 : 1, letter);
    return quoted + '"';
}

// Gives what then stands.
EntryStore::Rows InsertRows(Database& database, const std::string& table, const EntryStore::Rows& rows) {
    EntryStore::Rows stand;
    for (const auto& row : rows) {
        Database::Values values;
        for (const LintelField& column : row) values.push_back(column.Value);
        const auto inserted =
            database.Open("INSERT INTO " + table + " (" + Joined(row, QuotedName) + ") VALUES (" +
                              Joined(row, [](const LintelField&) { return "?"; }) + ") RETURNING *",
                          values);
        for (auto& taken : TakeRows(*inserted)) stand.push_back(std::move(taken));
    }
    return stand;
}

std::int64_t IdOf(const ILintelRows& rows) {
    const auto id = rows.Fields("Id").Value;
    const auto* const number = std::get_if<std::int64_t>(&id);
    return number == nullptr ? 0 : *number;
}

InitEditArguments ArgumentsOf(const CNolSchedData& row) {
    InitEditArguments arguments = LaterArguments();
    arguments.ScenarioTypeA = std::make_shared<CaddisScenarioType>();
    const auto copy = [&](const auto& column) {
        if (column.pArgument != nullptr) arguments.*column.pArgument = row.*column.pProperty;
    };
    for (const auto& column : entryColumns) std::visit(copy, column);
    return arguments;
}

template <class ToValue>
Database::Values RowValues(const ToValue& toValue) {
    Database::Values values;
    for (const auto& column : writtenColumns) values.push_back(std::visit(toValue, column));
    return values;
}

const std::string& InsertStatement() {
    static const std::string statement = "INSERT INTO NOL_Schedule (" + Joined(writtenColumns, NameOf) +
                                         ", Version, SavedBy, SavedAt) VALUES (" +
                                         Joined(writtenColumns, [](const EntryColumn&) { return "?"; }) +
                                         ", ?, ?, ?)";
    return statement;
}

std::string InsertStatementWithId() {
    std::string statement = InsertStatement();
    statement.insert(statement.find('(') + 1, "Id, ");
    return statement.insert(statement.find('?'), "?, ");
}

void Append(Database::Values& values, const Database::Values& more) {
    values.insert(values.end(), more.begin(), more.end());
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
    CNolSchedData read;
    StoredRow row;
    auto record = std::make_shared<CNolSchedData>();
    const Transaction reading(*database, Access::Read);
    {
        const auto rows = database->Open("SELECT * FROM NOL_Schedule WHERE Id = ?", {std::int64_t{id}});
        if (rows->AtEnd()) TellMissing(id);
        Opening(id, [&] {
            ReadRow(*rows, PlacesIn(*rows), read);
            row = {LintelDb().FieldToNumber(rows->Fields("Version"), 0), RowValues(ReadValue{read})};
        });
    }
    Opening(id, [&] { record->InitEdit(ArgumentsOf(read)); });
    record->NextRunDate = read.NextRunDate;
    record->LastRunDate = read.LastRunDate;
    return {std::move(record), std::move(row)};
}

bool EntryStore::Holds(const CNolSchedData& record, const StoredRow& row) const {
    return !record.IsNew && RowValues(WrittenValue{{record}}) == row.values;
}

StoredRow EntryStore::Write(CNolSchedData& record, const StoredRow& row) {
    if (row.version == std::numeric_limits<std::int32_t>::max())
        throw StoreError(database->Name() + ": the entry's Version cannot be counted any further.");
    StoredRow written{record.IsNew ? 1 : row.version + 1, RowValues(WrittenValue{{record}})};
    const Database::Values save{std::int64_t{written.version}, User(), DateValue(Clock().Now())};
    if (record.IsNew)
        Add(record, written, save);
    else
        Change(record, row, written, save);
    database->Announce("saved " + std::to_string(record.Id));
    return written;
}

void EntryStore::Add(CNolSchedData& record, const StoredRow& row, const Database::Values& save) {
    Database::Values values;
    if (record.Id != 0) values.emplace_back(std::int64_t{record.Id});
    Append(values, row.values);
    Append(values, save);
    if (record.Id == 0) {
        SkipIds();
        record.Id = database->Insert(InsertStatement(), values);
    } else {
        database->Insert(InsertStatementWithId(), values);
        ownId = std::max(ownId, record.Id);
    }
}

// What another program has noted in the other columns meanwhile stays.
void EntryStore::Change(const CNolSchedData& record, const StoredRow& row, const StoredRow& written,
                        const Database::Values& save) {
    std::string statement = "UPDATE NOL_Schedule SET ";
    Database::Values values;
    for (std::size_t i = 0; i < writtenColumns.size(); ++i) {
        if (written.values[i] == row.values[i]) continue;
        statement.append(NameOf(writtenColumns[i])).append(" = ?, ");
        values.push_back(written.values[i]);
    }
    Append(values, save);
    Append(values, {std::int64_t{record.Id}, std::int64_t{row.version}});
    statement += "Version = ?, SavedBy = ?, SavedAt = ? WHERE Id = ? AND Version = ?";
    if (database->Execute(statement, values) != 1) TellOvertaken(record, row.version);
}

void EntryStore::SkipIds() {
    if (const auto id = std::exchange(ownId, 0); id != 0) database->SkipId("NOL_Schedule", id);
}

// Asked for at the first save: most starts need no user, and the system reads files for one.
const std::string& EntryStore::User() const {
    if (user.empty()) user = UserName();
    return user;
}

// A trigger may have kept, doubled, moved or deleted rows.
void EntryStore::Verify(const CNolSchedData& record, const StoredRow& row) const {
    std::int64_t stored = 0;
    for (const auto& [key, item] : record.Overrides()) {
        const StudyKind* const kind = FindStudyKind(item->OverrideType);
        if (kind != nullptr && record.*kind->pFlag == "Y") ++stored;
    }
    const auto rows = database->Open(
        "SELECT Version, (SELECT COUNT(*) FROM NOL_Override WHERE NOL_OverrideId = Id) AS Overrides "
        "FROM NOL_Schedule WHERE Id = ?",
        {std::int64_t{record.Id}});
    if (rows->AtEnd() || rows->Fields("Version").Value != LintelValue{std::int64_t{row.version}} ||
        rows->Fields("Overrides").Value != LintelValue{stored})
        database->FailUntaken();
}

void EntryStore::TellOvertaken(const CNolSchedData& record, std::int32_t version) const {
    const auto rows = database->Open("SELECT Version, SavedBy, SavedAt FROM NOL_Schedule WHERE Id = ?",
                                     {std::int64_t{record.Id}});
    const std::string entry = "The entry " + Quoted(record.EditorName) + " was ";
    if (rows->AtEnd()) throw OvertakenError(entry + "deleted by another user since it was opened.");
    if (LintelDb().FieldToNumber(rows->Fields("Version"), 0) == version) database->FailUntaken();
    throw OvertakenError(entry + "saved by " + FieldToText(rows->Fields("SavedBy")) + " at " +
                         FieldToText(rows->Fields("SavedAt")) + ", after it was opened here.");
}

KeptEntry EntryStore::Delete(std::int32_t id) {
    const Database::Values ofEntry{std::int64_t{id}};
    Transaction transaction(*database);
    const auto isThere = [&] {
        return !database->Open("SELECT 1 FROM NOL_Schedule WHERE Id = ?", ofEntry)->AtEnd();
    };
    if (!isThere()) TellMissing(id);
    KeptEntry kept{
        id, TakeRows(*database->Open("DELETE FROM NOL_Schedule WHERE Id = ? RETURNING *", ofEntry)),
        TakeRows(*database->Open("DELETE FROM NOL_Override WHERE NOL_OverrideId = ? RETURNING *", ofEntry))};
    if (isThere() || !OverrideRows(id).empty()) database->FailUntaken();
    database->Announce("deleted " + std::to_string(id));
    transaction.Commit();
    return kept;
}

void EntryStore::Restore(const KeptEntry& kept) {
    const auto rows =
        database->Open("SELECT EditorName FROM NOL_Schedule WHERE Id = ?", {std::int64_t{kept.id}});
    if (!rows->AtEnd())
        throw RequestError("its Id is that of the entry " + Quoted(FieldToText(rows->Fields("EditorName"))) +
                           " meanwhile.");
    if (InsertRows(*database, "NOL_Schedule", kept.rows) != kept.rows ||
        InsertRows(*database, "NOL_Override", kept.overrides) != kept.overrides)
        database->FailUntaken();
    ownId = std::max(ownId, kept.id);
    database->Announce("saved " + std::to_string(kept.id));
}

// Under the names that the columns bear here: a server gives them back in small letters.
EntryStore::Rows EntryStore::OverrideRows(std::int32_t id) const {
    constexpr auto columns = std::to_array<const char*>({"NOL_OverrideId", "Type", "ScenarioId", "Duration",
                                                         "Polling_Interval", "Retrieve_Delay", "ClearLog"});
    Rows found;
    const auto rows = database->Open("SELECT * FROM NOL_Override WHERE NOL_OverrideId = ? ORDER BY Type",
                                     {std::int64_t{id}});
    for (; !rows->AtEnd(); rows->MoveNext()) {
        auto& row = found.emplace_back();
        for (const char* column : columns) row.push_back({column, rows->Fields(column).Value});
    }
    return found;
}

std::int64_t EntryStore::VersionOf(std::int32_t id) const {
    const auto rows = database->Open("SELECT Version FROM NOL_Schedule WHERE Id = ?", {std::int64_t{id}});
    return rows->AtEnd() ? 0 : LintelDb().FieldToNumber(rows->Fields("Version"), 0);
}

// The limit as a bound: a query over a limited one sorts its rows, this one takes them in their order.
void EntryStore::ForEach(const std::function<void(ListedEntry&)>& visit, std::int64_t afterId,
                         std::int64_t limit) const {
    const auto rows = database->Open(
        "SELECT Entry.*, NOL_Document.Name, NOL_Override.Type "
        "FROM NOL_Schedule AS Entry "
        "LEFT JOIN NOL_Document ON NOL_Document.Id = Entry.RptGrpId AND NOL_Document.Type = 'NOL Group' "
        "LEFT JOIN NOL_Override ON NOL_Override.NOL_OverrideId = Entry.Id "
        "WHERE Entry.Id > CAST(? AS BIGINT) AND Entry.Id <= (SELECT MAX(Id) FROM "
        "(SELECT Id FROM NOL_Schedule WHERE Id > CAST(? AS BIGINT) ORDER BY Id LIMIT ?) AS Page) "
        "ORDER BY Entry.Id",
        {afterId, afterId, limit});
    ListReader reader(*rows);
    ListedEntry entry;
    while (!rows->AtEnd()) {
        reader.Read(entry);
        do {
            reader.ReadKind(entry);
            rows->MoveNext();
        } while (!rows->AtEnd() && reader.Id() == entry.id);
        std::ranges::sort(entry.kinds);
        visit(entry);
    }
}

void EntryStore::ForOne(std::int32_t id, const std::function<void(const ListedEntry&)>& visit) const {
    bool isFound = false;
    const auto visitIt = [&](const ListedEntry& entry) {
        isFound = entry.id == id;
        if (isFound) visit(entry);
    };
    ForEach(visitIt, std::int64_t{id} - 1, 1);
    if (!isFound) TellMissing(id);
}

void EntryStore::TellMissing(std::int32_t id) const {
    throw RequestError("There is no entry " + std::to_string(id) + " in " + database->Name() + ".");
}

// A page is taken from the store before it is visited: whoever visits slowly keeps no saver waiting. Its
// entries are filled anew for the next one.
void EntryStore::ForAll(const std::function<void(const ListedEntry&)>& visit) const {
    constexpr std::size_t pageSize = 500;
    std::vector<ListedEntry> page(pageSize);
    std::size_t count = 0;
    const auto take = [&](ListedEntry& entry) { std::swap(page[count++], entry); };
    std::int64_t lastId = std::numeric_limits<std::int64_t>::min();
    do {
        count = 0;
        ForEach(take, lastId, pageSize);
        for (const ListedEntry& entry : std::span(page).first(count)) visit(entry);
        if (count > 0) lastId = page[count - 1].id;
    } while (count == pageSize);
}

std::vector<std::string> EntryStore::UsersOf(std::int32_t documentId) const {
    std::vector<std::string> users;
    const auto rows = database->Open(
        "SELECT Id, EditorName FROM NOL_Schedule WHERE RptGrpId = ? OR Id IN "
        "(SELECT NOL_OverrideId FROM NOL_Override WHERE ScenarioId = ?) ORDER BY Id",
        {std::int64_t{documentId}, std::int64_t{documentId}});
    for (; !rows->AtEnd(); rows->MoveNext())
        users.push_back(std::to_string(IdOf(*rows)) + ' ' + Quoted(FieldToText(rows->Fields("EditorName"))));
    return users;
}

std::multimap<std::int64_t, OverrideUse> EntryStore::OverrideUses() const {
    std::multimap<std::int64_t, OverrideUse> uses;
    const auto rows = database->Open(
        "SELECT NOL_OverrideId AS Id, NOL_Override.Type AS OverrideType, Duration, ScenarioId, "
        "NOL_Document.Id AS Found FROM NOL_Override LEFT JOIN NOL_Document ON NOL_Document.Id = ScenarioId "
        "AND NOL_Document.Type = 'Scenario' ORDER BY 1, 2");
    for (; !rows->AtEnd(); rows->MoveNext()) {
        OverrideUse use;
        ListedEntry entry;
        Reads(entry, [&] {
            use.type = FieldToText(rows->Fields("OverrideType"));
            use.duration = LintelDb().FieldToNumber(rows->Fields("Duration"), 0);
            use.scenarioId = LintelDb().FieldToNumber(rows->Fields("ScenarioId"), 0);
        });
        use.isScenarioGone = use.scenarioId > 0 && FieldToText(rows->Fields("Found")).empty();
        uses.emplace(IdOf(*rows), std::move(use));
    }
    return uses;
}

}  // namespace NolSchedCtls
