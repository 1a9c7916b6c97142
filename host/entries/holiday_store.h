// The days that a store keeps as holidays: NOL_Holiday.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "NolSchedCtls/base/date_time.h"
#include "platform/database.h"

namespace NolSchedCtls {

struct Holiday {
    DateTime day = 0;  // without a time of day
    std::string name;
};

// As it stands in the store, also where that is no day.
struct StoredHoliday {
    std::string day;
    std::string name;
    std::optional<DateTime> date;  // nothing for what is no day
};

struct HolidayDays {
    std::vector<DateTime> sound;
    std::vector<std::string> troubles;  // of each row that is no day, what All would throw

    bool operator==(const HolidayDays&) const = default;
};

// All throw StoreError where the store fails.
class HolidayStore {
  public:
    explicit HolidayStore(std::shared_ptr<Database> databaseA) : database(std::move(databaseA)) {}

    // By day. None in a store that was made before there were holidays, until the first is added. Throws
    // StoreError for a row that is no day, too.
    std::vector<Holiday> All() const;
    HolidayDays Days() const;
    std::vector<StoredHoliday> Stored() const;
    // Throws RequestError for a day that is one already.
    void Add(const Holiday& holiday);
    // Adds those whose days are none yet, all or none of them. Returns how many they were.
    int Import(const std::vector<Holiday>& holidays);
    // As it stands in the store, so that what is no day can be deleted. Throws RequestError for one that is
    // not there.
    void Delete(const std::string& day);

  private:
    std::optional<std::string> NameOf(const std::string& day) const;

    std::shared_ptr<Database> database;
};

}  // namespace NolSchedCtls
