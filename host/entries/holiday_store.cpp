#include "host/entries/holiday_store.h"

#include "platform/schema.h"

namespace NolSchedCtls {

namespace {

std::string DayOf(DateTime day) { return IsoText(day).substr(0, 10); }

}  // namespace

std::vector<Holiday> HolidayStore::All() const {
    std::vector<Holiday> holidays;
    if (!database->HasTable(holidayTable)) return holidays;
    const auto rows = database->Open("SELECT Day, Name FROM NOL_Holiday ORDER BY Day");
    const auto read = [&rows] {
        return Holiday{DateOf(ParseIso(FieldToText(rows->Fields("Day")))), FieldToText(rows->Fields("Name"))};
    };
    const auto about = [this] { return database->Name() + ": a holiday: "; };
    for (; !rows->AtEnd(); rows->MoveNext()) holidays.push_back(Explained<StoreError>(read, about));
    return holidays;
}

std::string HolidayStore::NameOf(const std::string& day) const {
    const auto rows = database->Open("SELECT Name FROM NOL_Holiday WHERE Day = ?", {day});
    return rows->AtEnd() ? "" : FieldToText(rows->Fields("Name"));
}

int HolidayStore::Import(const std::vector<Holiday>& holidays) {
    int count = 0;
    Transaction transaction(*database);
    MakeHolidayTable(*database);
    for (const Holiday& holiday : holidays)
        count += static_cast<int>(
            database->Execute("INSERT INTO NOL_Holiday (Day, Name) VALUES (?, ?) ON CONFLICT DO NOTHING",
                              {DayOf(holiday.day), holiday.name}));
    transaction.Commit();
    return count;
}

void HolidayStore::Add(const Holiday& holiday) {
    if (Import({holiday}) == 0)
        throw RequestError("There is already a holiday on " + DayOf(holiday.day) + ", " +
                           Quoted(NameOf(DayOf(holiday.day))) + ".");
}

void HolidayStore::Delete(DateTime day) {
    if (!database->HasTable(holidayTable) ||
        database->Execute("DELETE FROM NOL_Holiday WHERE Day = ?", {DayOf(day)}) == 0)
        throw RequestError("There is no holiday on " + DayOf(day) + ".");
}

}  // namespace NolSchedCtls
