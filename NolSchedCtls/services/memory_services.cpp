#include "NolSchedCtls/services/memory_services.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "NolSchedCtls/base/collection.h"
#include "NolSchedCtls/base/number.h"
#include "NolSchedCtls/base/text.h"

namespace NolSchedCtls::inline v1 {

namespace {

struct ToLiteral {
    std::string operator()(std::monostate) const { return "NULL"; }
    std::string operator()(std::int64_t number) const { return std::to_string(number); }
    std::string operator()(double number) const {
        std::array<char, 32> text{};
        return {text.data(),
                std::to_chars(text.begin(), text.end(), number, std::chars_format::scientific).ptr};
    }
    std::string operator()(const std::string& text) const {
        std::string quoted = "'";
        for (const char letter : text) quoted.append(letter == '\'' ? 2 : 1, letter);
        return quoted + '\'';
    }
};

// Reads a statement from its front on; what is not there as expected makes it one that is not understood.
class StatementReader {
  public:
    explicit StatementReader(std::string_view statementA) : statement(statementA), rest(statementA) {}

    bool Takes(std::string_view word) {
        const bool isThere = rest.starts_with(word);
        if (isThere) rest.remove_prefix(word.size());
        return isThere;
    }
    void Expect(std::string_view word) {
        if (!Takes(word)) Fail();
    }
    std::string Name() {
        const std::string_view name = TakeUpTo(" ,)");
        if (name.empty()) Fail();
        return std::string(name);
    }
    LintelValue Literal() {
        if (Takes("NULL")) return {};
        if (Takes("'")) return QuotedText();
        const std::string_view text = TakeUpTo(" ,)");
        if (const auto whole = ParseWhole<std::int64_t>(text)) return *whole;
        const auto number = ParseNumber(text);
        if (!number || !std::isfinite(*number)) Fail();
        return *number;
    }
    void ExpectEnd() {
        if (!rest.empty()) Fail();
    }
    [[noreturn]] void Fail() const {
        throw NolSchedError("The statement " + Quoted(statement) +
                            " is none that the store in memory understands.");
    }

  private:
    std::string_view TakeUpTo(std::string_view ends) {
        const std::string_view taken = rest.substr(0, rest.find_first_of(ends));
        rest.remove_prefix(taken.size());
        return taken;
    }
    std::string QuotedText() {
        std::string text;
        do {
            const std::size_t quote = rest.find('\'');
            if (quote == std::string_view::npos) Fail();
            text += rest.substr(0, quote);
            rest.remove_prefix(quote + 1);
            if (!rest.starts_with('\'')) return text;
            text += '\'';
        } while (Takes("'"));
        return text;
    }

    std::string_view statement;
    std::string_view rest;
};

// The end of a DELETE or a SELECT: "table WHERE column = number".
struct Condition {
    explicit Condition(StatementReader& reader) : sTable(reader.Name()) {
        reader.Expect(" WHERE ");
        sColumn = reader.Name();
        reader.Expect(" = ");
        value = reader.Literal();
        reader.ExpectEnd();
    }
    bool Holds(const MemoryStore::Row& row) const {
        const LintelField* const field = FindField(row, sColumn);
        return field != nullptr && field->Value == value;
    }

    std::string sTable;
    std::string sColumn;
    LintelValue value;
};

class MemoryRows : public ILintelRows {
  public:
    explicit MemoryRows(std::vector<MemoryStore::Row> rowsA) : rows(std::move(rowsA)) {}

    bool AtEnd() const override { return next >= rows.size(); }
    void MoveNext() override { ++next; }
    LintelField Fields(std::string_view sColumn) const override {
        const LintelField* const field = AtEnd() ? nullptr : FindField(rows[next], sColumn);
        if (field != nullptr) return *field;
        throw NolSchedError("The rows have no column " + std::string(sColumn) + ".");
    }

  private:
    std::vector<MemoryStore::Row> rows;
    std::size_t next = 0;
};

// What the services share: the store, which lives as long as any of them.
template <class Service>
struct InMemory : Service {
    explicit InMemory(std::shared_ptr<MemoryStore> storeA) : store(std::move(storeA)) {}
    std::shared_ptr<MemoryStore> store;
};

struct MemoryLintel : InMemory<ILintelDb> {
    using InMemory::InMemory;

    void ExecuteStatement(std::string_view sStatement) override {
        StatementReader reader(sStatement);
        if (reader.Takes("DELETE FROM ")) {
            const Condition condition(reader);
            std::erase_if(store->tables[condition.sTable],
                          [&](const auto& row) { return condition.Holds(row); });
        } else {
            reader.Expect("INSERT INTO ");
            Insert(reader);
        }
    }

    std::unique_ptr<ILintelRows> OpenRows(const OpenRowsArguments& arguments) override {
        StatementReader reader(arguments.sQuery);
        reader.Expect("SELECT * FROM ");
        const Condition condition(reader);
        std::vector<MemoryStore::Row> found;
        for (const auto& row : store->tables[condition.sTable])
            if (condition.Holds(row)) found.push_back(row);
        return RowsInMemory(std::move(found));
    }

    std::string JoinValues(const std::vector<LintelValue>& values) const override {
        return Joined(values, [](const LintelValue& value) { return std::visit(ToLiteral{}, value); });
    }

    LintelDateTime ImmediateDateTime() const override { return {Clock().Now(), true}; }

    void Insert(StatementReader& reader) const {
        const std::string sTable = reader.Name();
        MemoryStore::Row row;
        reader.Expect(" (");
        do row.push_back({reader.Name(), {}});
        while (reader.Takes(", "));
        reader.Expect(") VALUES (");
        for (LintelField& field : row) {
            if (&field != row.data()) reader.Expect(", ");
            field.Value = reader.Literal();
        }
        reader.Expect(")");
        reader.ExpectEnd();
        store->tables[sTable].push_back(std::move(row));
    }
};

struct MemoryFailureReport : InMemory<ILintelFailureReport> {
    using InMemory::InMemory;
    void ReportFailure(std::string_view sText) override {
        store->failures.push_back(std::string(sText) + failure);
    }
    std::string failure = PresentFailure();
};

struct MemoryCaddis : InMemory<ICaddisStore> {
    using InMemory::InMemory;

    std::shared_ptr<const CaddisDocument> FindDocument(const CaddisDocumentType& type,
                                                       std::int32_t nId) override {
        for (const CaddisDocument& document : store->documents)
            if (document.DocumentType == type && document.Id == nId)
                return std::make_shared<CaddisDocument>(document);
        return nullptr;
    }
    std::vector<std::shared_ptr<const CaddisDocument>> DocumentsOfType(
        const CaddisDocumentType& type) override {
        std::vector<std::shared_ptr<const CaddisDocument>> found;
        for (const CaddisDocument& document : store->documents)
            if (document.DocumentType == type) found.push_back(std::make_shared<CaddisDocument>(document));
        return found;
    }
    CaddisUser CurrentUser() override { return store->user; }
};

struct MemoryMessages : InMemory<IMessageService> {
    using InMemory::InMemory;
    void Show(std::string_view sText, int nFlags, std::string_view sTitle, int /*nHelpFile*/,
              int /*nHelpContext*/) override {
        store->messages.push_back({std::string(sText), nFlags, std::string(sTitle)});
    }
};

struct StandingClock : InMemory<IClock> {
    StandingClock(std::shared_ptr<MemoryStore> storeA, std::unique_ptr<IClock> systemA)
        : InMemory(std::move(storeA)), system(std::move(systemA)) {}
    DateTime Now() override { return store->now ? *store->now : system->Now(); }
    std::unique_ptr<IClock> system;
};

}  // namespace

const LintelField* FindField(const MemoryStore::Row& row, std::string_view sColumn) {
    const auto found = std::find_if(row.begin(), row.end(),
                                    [&](const LintelField& field) { return EqualKeys(field.Name, sColumn); });
    return found == row.end() ? nullptr : &*found;
}

std::unique_ptr<ILintelRows> RowsInMemory(std::vector<MemoryStore::Row> rows) {
    return std::make_unique<MemoryRows>(std::move(rows));
}

std::unique_ptr<ILintelDb> MemoryProvider::CreateLintelDb() { return std::make_unique<MemoryLintel>(store); }

std::unique_ptr<ILintelFailureReport> MemoryProvider::CreateLintelFailureReport() {
    return std::make_unique<MemoryFailureReport>(store);
}

std::unique_ptr<ICaddisStore> MemoryProvider::CreateCaddisStore() {
    return std::make_unique<MemoryCaddis>(store);
}

std::unique_ptr<IMessageService> MemoryProvider::CreateMessageService() {
    return std::make_unique<MemoryMessages>(store);
}

std::unique_ptr<IClock> MemoryProvider::CreateClock() {
    return std::make_unique<StandingClock>(store, ServiceProvider::CreateClock());
}

std::shared_ptr<MemoryStore> InstallMemoryServices() {
    auto store = std::make_shared<MemoryStore>();
    InstallServices([store] { return std::make_unique<MemoryProvider>(store); });
    return store;
}

}  // namespace NolSchedCtls::inline v1
