// The tables of a store and what stands in them from the start.
#pragma once

#include "platform/database.h"

namespace NolSchedCtls {

enum class Samples { None, Documents };

// Makes the tables of an empty store, in a transaction of its own, all or none, with the settings' defaults;
// gives whether it did. Throws StoreError for an empty store that is not to be made, and for one that lacks
// a table, which it names, or holds others alone.
bool PrepareTables(Database& database, MissingStore missing = MissingStore::Make,
                   Samples samples = Samples::Documents);

// The setting that says how long an hourly entry's period is.
inline constexpr const char* periodMinutes = "Period Minutes";

inline constexpr std::string_view holidayTable = "NOL_Holiday";

// Where it is not there: a store may be older than holidays. Call inside a transaction.
void MakeHolidayTable(Database& database);

}  // namespace NolSchedCtls
