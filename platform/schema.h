// The tables of a store and what stands in them from the start.
#pragma once

#include "platform/database.h"

namespace NolSchedCtls {

// Makes the tables of a store that has no NOL_Schedule yet, in a transaction of its own: all or none. A table
// that is there stays as it is; documents get samples, settings their defaults. Throws StoreError for a store
// that has NOL_Schedule and lacks another table, and names that one.
void PrepareTables(Database& database);

}  // namespace NolSchedCtls
