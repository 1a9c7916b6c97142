#include "tests/host/store.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "platform/schema.h"

namespace NolSchedCtls::Testing {

namespace {

std::string Cell(const LintelValue& value) {
    if (std::holds_alternative<std::monostate>(value)) return "NULL";
    const std::string text = FieldToText({{}, value});
    return text.empty() ? "''" : text;
}

std::string Server() {
    const char* const server = std::getenv("NOLSCHED_TEST_SERVER");
    return server == nullptr ? "" : server;
}

void OnServer(const std::string& statement) { OpenDatabase(Server() + "/postgres")->Execute(statement); }

std::string Rows(Database& database, const std::string& statement) {
    std::string text;
    const auto rows = database.Open(statement);
    for (; !rows->AtEnd(); rows->MoveNext()) {
        for (int i = 0; i < rows->ColumnCount(); ++i) text += (i == 0 ? "" : "|") + Cell(rows->Value(i));
        text += '\n';
    }
    return text;
}

}  // namespace

TemporaryStore::TemporaryStore(bool isMade) {
    static int count = 0;
    const std::string name = "nolsched_" + std::to_string(getpid()) + "_" + std::to_string(++count);
    if (IsServer()) OnServer("CREATE DATABASE " + name);
    address = (IsServer() ? Server() : std::filesystem::temp_directory_path().string()) + "/" + name;
    if (isMade) PrepareTables(*OpenDatabase(address));
}

TemporaryStore::~TemporaryStore() {
    if (IsServer())
        OnServer("DROP DATABASE " + address.substr(address.rfind('/') + 1) + " WITH (FORCE)");
    else
        for (const char* ending : {"", "-journal"}) std::filesystem::remove(address + ending);
}

bool TemporaryStore::IsServer() { return !Server().empty(); }

std::string TemporaryStore::Sql(const std::string& statement) const {
    try {
        return Rows(*OpenDatabase(address), statement);
    } catch (const StoreError& error) {
        return error.what();
    }
}

std::string TemporaryStore::Dump() const {
    std::string dump;
    for (const char* table : {"NOL_Schedule", "NOL_Override", "NOL_Document", "NOL_Setting"})
        dump += std::string(table) + '\n' + Sql(std::string("SELECT * FROM ") + table + " ORDER BY 1, 2");
    return dump;
}

TemporaryFolder::TemporaryFolder() : path(std::filesystem::temp_directory_path() / "nolsched-XXXXXX") {
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error(path);
}

TemporaryFolder::~TemporaryFolder() { std::filesystem::remove_all(path); }

}  // namespace NolSchedCtls::Testing
