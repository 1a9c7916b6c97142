// The three statements on the table NOL_Override, one row for each study kind that an entry overrides.
#pragma once

#include <cstdint>

namespace NolSchedCtls::inline v1 {

class CNolOverride;
class CNolSchedData;

namespace MSQL {

// All rows of the entry. Throws what LintelDb throws.
void DeleteNolOverrides(std::int32_t nId);

// One row for the entry nId, whatever the override's own NOL_OverrideId. A failure is told through
// LintelFailureReport and goes no further.
void InsertNolOverride(const CNolOverride& override, std::int32_t nId);

// Adds the rows of the record's Id to the record. A number column without a value reads as 0. Throws what
// LintelDb raises, and DuplicateKeyError for two rows of one Type.
void LoadNolOverrides(CNolSchedData& record);

}  // namespace MSQL

}  // namespace NolSchedCtls::inline v1
