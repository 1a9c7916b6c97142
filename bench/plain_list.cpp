// The yardstick of `nolsched list`: the thirteen columns of which a list is made, with the group's name and
// the kinds of the overrides, read through SQLite's own interface and printed one line an entry.
#include <sqlite3.h>

#include <cstdio>

namespace {

constexpr const char* query =
    "SELECT Entry.Id, EditorName, NOL_Document.Name, Periodicity, Frequency, WhichMonthDate, WhichWeek, "
    "WhichWeekday, FirstDateTime, FinalDateTime, ScheduleActive, RunMode, NOL_Override.Type "
    "FROM NOL_Schedule AS Entry "
    "LEFT JOIN NOL_Document ON NOL_Document.Id = Entry.RptGrpId AND NOL_Document.Type = 'NOL Group' "
    "LEFT JOIN NOL_Override ON NOL_Override.NOL_OverrideId = Entry.Id ORDER BY Entry.Id";
constexpr int kind = 12;

void Print(sqlite3_stmt* rows, int column) {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(rows, column));
    if (text != nullptr) std::fputs(text, stdout);
    std::putchar(' ');
}

}  // namespace

int main(int argc, char** argv) {
    sqlite3* connection = nullptr;
    sqlite3_stmt* rows = nullptr;
    if (argc != 2 || sqlite3_open(argv[1], &connection) != SQLITE_OK ||
        sqlite3_prepare_v2(connection, query, -1, &rows, nullptr) != SQLITE_OK)
        return 1;
    sqlite3_int64 entry = -1;
    while (sqlite3_step(rows) == SQLITE_ROW) {
        if (sqlite3_column_int64(rows, 0) != entry) {
            if (entry >= 0) std::putchar('\n');
            entry = sqlite3_column_int64(rows, 0);
            for (int column = 0; column < kind; ++column) Print(rows, column);
        }
        Print(rows, kind);
    }
    std::putchar('\n');
    sqlite3_finalize(rows);
    sqlite3_close(connection);
    return 0;
}
