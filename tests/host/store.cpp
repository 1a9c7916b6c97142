#include "tests/host/store.h"

#include <unistd.h>
#include <QDateTime>
#include <QSqlError>
#include <QSqlRecord>
#include <QVariant>
#include <algorithm>
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

// Connections are numbered; Qt lists them in no order.
QString NewestConnection() {
    return std::ranges::max(QSqlDatabase::connectionNames(), {},
                            [](const QString& name) { return name.section(u'-', -1).toInt(); });
}

std::string Server() { return qEnvironmentVariable("NOLSCHED_TEST_SERVER").toStdString(); }

void OnServer(const std::string& statement) { Database(Server() + "/postgres").Execute(statement); }

}  // namespace

TemporaryStore::TemporaryStore() {
    static int count = 0;
    const std::string name = "nolsched_" + std::to_string(getpid()) + "_" + std::to_string(++count);
    if (IsServer()) OnServer("CREATE DATABASE " + name);
    address = (IsServer() ? Server() : std::filesystem::temp_directory_path().string()) + "/" + name;
}

TemporaryStore::~TemporaryStore() {
    if (IsServer())
        OnServer("DROP DATABASE " + address.substr(address.rfind('/') + 1) + " WITH (FORCE)");
    else
        for (const char* ending : {"", "-journal"}) std::filesystem::remove(address + ending);
}

bool TemporaryStore::IsServer() { return !Server().empty(); }

std::string TemporaryStore::Sql(const std::string& statement) const {
    const Database database(address);
    QSqlQuery query(QSqlDatabase::database(NewestConnection()));
    if (!query.exec(QString::fromStdString(statement))) return query.lastError().text().toStdString();
    std::string rows;
    while (query.next()) {
        for (int i = 0; i < query.record().count(); ++i) rows += (i == 0 ? "" : "|") + Cell(query.value(i));
        rows += '\n';
    }
    return rows;
}

std::string TemporaryStore::Dump() const {
    std::string dump;
    for (const char* table : {"NOL_Schedule", "NOL_Override", "NOL_Document", "NOL_Setting"})
        dump += std::string(table) + '\n' + Sql(std::string("SELECT * FROM ") + table + " ORDER BY 1, 2");
    return dump;
}

}  // namespace NolSchedCtls::Testing
