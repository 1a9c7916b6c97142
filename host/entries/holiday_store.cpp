#include "host/entries/holiday_store.h"

#include "platform/schema.h"

namespace NolSchedCtls {

namespace {

std::string DayOf(DateTime day) { return IsoText(day).substr(0, 10); }

DateTime ReadDay(const StoreRows& rows) { return DateOf(ParseIso(FieldToText(rows.Fields("Day")))); }

std::string AboutHoliday(const Database& database) { return database.Name() + ": a holiday: "; }

}  // namespace

std::vector<Holiday> HolidayStore::All() const {
    std::vector<Holiday> holidays;
    if (!database->HasTable(holidayTable)) return holidays;
    const auto rows = database->Open("SELECT Day, Name FROM NOL_Holiday ORDER BY Day");
    const auto read = [&rows] { return Holiday{ReadDay(*rows), FieldToText(rows->Fields("Name"))}; };
    const auto about = [this] { return AboutHoliday(*database); };
    for (; !rows->AtEnd(); rows->MoveNext()) holidays.push_back(Explained<StoreError>(read, about));
    return holidays;
}

HolidayDays HolidayStore::Days() const {
    HolidayDays days;
    if (!database->HasTable(holidayTable)) return days;
    const auto rows = database->Open("SELECT Day FROM NOL_Holiday ORDER BY Day");
    for (; !rows->AtEnd(); rows->MoveNext()) try {
            days.sound.push_back(ReadDay(*rows));
        } catch (const StoreError&) {
            throw;
        } catch (const NolSchedError& error) {
            days.troubles.push_back(AboutHoliday(*database) + error.what());
        }
    return days;
}

std::vector<StoredHoliday> HolidayStore::Stored() const {
    std::vector<StoredHoliday> holidays;
    if (!database->HasTable(holidayTable)) return holidays;
    const auto rows = database->Open("SELECT Day, Name FROM NOL_Holiday ORDER BY Day");
    for (; !rows->AtEnd(); rows->MoveNext()) {
        holidays.push_back({FieldToText(rows->Fields("Day")), FieldToText(rows->Fields("Name")), {}});
        try {
            holidays.back().date = ReadDay(*rows);
        } catch (const NolSchedError&) {
            continue;
        }
    }
    return holidays;
}

std::optional<std::string> HolidayStore::NameOf(const std::string& day) const {
    const auto rows = database->Open("SELECT Name FROM NOL_Holiday WHERE Day = ?", {day});
    if (rows->AtEnd()) return {};
    return FieldToText(rows->Fields("Name"));
}

int HolidayStore::Import(const std::vector<Holiday>& holidays) {
    int count = 0;
    Transaction transaction(*database);
    MakeHolidayTable(*database);
    for (const auto& [day, name] : holidays) {
        if (NameOf(DayOf(day))) continue;
        database->Execute("INSERT INTO NOL_Holiday (Day, Name) VALUES (?, ?)", {DayOf(day), name});
        if (!NameOf(DayOf(day))) database->FailUntaken();
        ++count;
    }
    database->Announce("holidays");
    transaction.Commit();
    return count;
}

void HolidayStore::Add(const Holiday& holiday) {
    if (Import({holiday}) == 0)
        throw RequestError("There is already a holiday on " + DayOf(holiday.day) + ", " +
                           Quoted(NameOf(DayOf(holiday.day)).value_or("")) + ".");
}

void HolidayStore::Delete(const std::string& day) {
    Transaction transaction(*database);
    if (!database->HasTable(holidayTable) || !NameOf(day))
        throw RequestError("There is no holiday on " + day + ".");
    if (database->Execute("DELETE FROM NOL_Holiday WHERE Day = ?", {day}) == 0) database->FailUntaken();
    database->Announce("holidays");
    transaction.Commit();
}

}  // namespace NolSchedCtls
