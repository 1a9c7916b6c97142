// The columns of a record and of its overrides by name and as texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "NolSchedCtls/records/nol_sched_data.h"

namespace NolSchedCtls::inline v1::C {

// Nothing beyond the last.
std::string_view RecordColumnName(std::size_t index);
// Throws CallError for a name that no column has, as do the others.
std::size_t RecordColumnIndex(std::string_view name);
std::size_t OverrideColumnIndex(std::string_view name);

// Null is no value. Throws CallError for a text that is none of the column's.
void WriteColumn(CNolSchedData& record, std::size_t column, const char* text);
// Of DBFirstDateTime and DBFinalDateTime, too.
std::string ReadColumn(const CNolSchedData& record, std::string_view name);
std::string ReadColumn(const CNolOverride& override, std::size_t column);

}  // namespace NolSchedCtls::inline v1::C
