#include "tests/host/store.h"

#include <unistd.h>
#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>
#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/database.h"

namespace NolSchedCtls::Testing {

namespace {

std::string Cell(const QVariant& value) {
    if (value.isNull()) return "NULL";
    if (value.typeId() == QMetaType::QDateTime)
        return value.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
    return value.toString().isEmpty() ? "''" : value.toString().toStdString();
}

std::string Rows(QSqlQuery& query) {
    std::string rows;
    while (query.next()) {
        for (int i = 0; i < query.record().count(); ++i) rows += (i == 0 ? "" : "|") + Cell(query.value(i));
        rows += '\n';
    }
    return rows;
}

// Connections are numbered; Qt lists them in no order.
QString NewestConnection() {
    const QStringList names = QSqlDatabase::connectionNames();
    return *std::max_element(names.begin(), names.end(), [](const QString& a, const QString& b) {
        return std::pair(a.size(), a) < std::pair(b.size(), b);
    });
}

const char* Server() { return std::getenv("NOLSCHED_TEST_SERVER"); }

// A statement past the store, on the server's own database.
void OnServer(const std::string& statement) {
    Database(std::string(Server()) + "/postgres").Execute(statement);
}

std::string TemporaryName() {
    static int count = 0;
    return "t_" + std::to_string(getpid()) + "_" + std::to_string(++count);
}

}  // namespace

TemporaryStore::TemporaryStore() : name(TemporaryName()) {
    if (Server() != nullptr) {
        OnServer("CREATE DATABASE " + name);
        address = std::string(Server()) + "/" + name;
        return;
    }
    const auto folder = std::filesystem::temp_directory_path() / ("nolsched-" + name);
    std::filesystem::create_directory(folder);
    address = (folder / "t.db").string();
}

TemporaryStore::~TemporaryStore() {
    if (Server() != nullptr)
        OnServer("DROP DATABASE " + name + " WITH (FORCE)");
    else
        std::filesystem::remove_all(std::filesystem::path(address).parent_path());
}

bool TemporaryStore::IsServer() { return Server() != nullptr; }

std::string TemporaryStore::Sql(const std::string& statement) const {
    const Database database(address);
    QSqlQuery query(QSqlDatabase::database(NewestConnection()));
    if (!query.exec(QString::fromStdString(statement))) return query.lastError().text().toStdString();
    return Rows(query);
}

std::string TemporaryStore::Dump() const {
    std::string dump;
    for (const char* table : {"NOL_Schedule", "NOL_Override", "NOL_Document", "NOL_Setting"})
        dump += std::string(table) + '\n' + Sql(std::string("SELECT * FROM ") + table + " ORDER BY 1, 2");
    return dump;
}

}  // namespace NolSchedCtls::Testing
