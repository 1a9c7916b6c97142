// The stored properties of an entry: one column each in NOL_Schedule, under the property's name.
#pragma once

#include <array>
#include <string_view>
#include <variant>

#include "NolSchedCtls/records/nol_sched_data.h"

namespace NolSchedCtls::inline v1 {

template <class T>
struct Column {
    std::string_view sName;
    T CNolSchedData::*pProperty;
    Given<T> InitEditArguments::*pArgument;  // nothing for what the host sets on the record itself
};

using NumberColumn = Column<std::int32_t>;
using TextColumn = Column<std::string>;
using DateColumn = Column<DateTime>;
using EntryColumn = std::variant<NumberColumn, TextColumn, DateColumn>;

// Id comes first.
inline constexpr auto entryColumns = std::to_array<EntryColumn>({
    NumberColumn{"Id", &CNolSchedData::Id, &InitEditArguments::nIdA},
    TextColumn{"EditorName", &CNolSchedData::EditorName, &InitEditArguments::sEditorNameA},
    DateColumn{"FirstDateTime", &CNolSchedData::FirstDateTime, &InitEditArguments::dFirstDateTimeA},
    DateColumn{"FinalDateTime", &CNolSchedData::FinalDateTime, &InitEditArguments::dFinalDateTimeA},
    DateColumn{"NextRunDate", &CNolSchedData::NextRunDate, nullptr},
    NumberColumn{"WhichMonthDate", &CNolSchedData::WhichMonthDate, &InitEditArguments::nWhichMonthDateA},
    NumberColumn{"WhichWeek", &CNolSchedData::WhichWeek, &InitEditArguments::nWhichWeekA},
    NumberColumn{"WhichWeekday", &CNolSchedData::WhichWeekday, &InitEditArguments::nWhichWeekdayA},
    TextColumn{"Periodicity", &CNolSchedData::Periodicity, &InitEditArguments::sPeriodicityA},
    NumberColumn{"Frequency", &CNolSchedData::Frequency, &InitEditArguments::nFrequencyA},
    TextColumn{"ScheduleActive", &CNolSchedData::ScheduleActive, &InitEditArguments::sScheduleActiveA},
    TextColumn{"IncludeMondays", &CNolSchedData::IncludeMondays, &InitEditArguments::sIncludeMondaysA},
    TextColumn{"IncludeTuesdays", &CNolSchedData::IncludeTuesdays, &InitEditArguments::sIncludeTuesdaysA},
    TextColumn{"IncludeWednesdays", &CNolSchedData::IncludeWednesdays,
               &InitEditArguments::sIncludeWednesdaysA},
    TextColumn{"IncludeThursdays", &CNolSchedData::IncludeThursdays, &InitEditArguments::sIncludeThursdaysA},
    TextColumn{"IncludeFridays", &CNolSchedData::IncludeFridays, &InitEditArguments::sIncludeFridaysA},
    TextColumn{"IncludeSaturdays", &CNolSchedData::IncludeSaturdays, &InitEditArguments::sIncludeSaturdaysA},
    TextColumn{"IncludeSundays", &CNolSchedData::IncludeSundays, &InitEditArguments::sIncludeSundaysA},
    TextColumn{"IncludeHolidays", &CNolSchedData::IncludeHolidays, &InitEditArguments::sIncludeHolidaysA},
    TextColumn{"IncludeDayAfterHol", &CNolSchedData::IncludeDayAfterHol,
               &InitEditArguments::sIncludeDayAfterHolA},
    NumberColumn{"ClientMachineId", &CNolSchedData::ClientMachineId, &InitEditArguments::nClientMachineIdA},
    NumberColumn{"RptGrpId", &CNolSchedData::RptGrpId, &InitEditArguments::nRptGrpIdA},
    TextColumn{"RunMode", &CNolSchedData::RunMode, &InitEditArguments::sRunModeA},
    TextColumn{"RetrieveMode", &CNolSchedData::RetrieveMode, &InitEditArguments::sRetrieveModeA},
    TextColumn{"AutoPurge", &CNolSchedData::AutoPurge, &InitEditArguments::sAutoPurgeA},
    NumberColumn{"PurgeInterval", &CNolSchedData::PurgeInterval, &InitEditArguments::nPurgeIntervalA},
    TextColumn{"SubFolderName", &CNolSchedData::SubFolderName, &InitEditArguments::sSubFolderNameA},
    TextColumn{"CreateFiles", &CNolSchedData::CreateFiles, &InitEditArguments::sCreateFilesA},
    DateColumn{"LastRunDate", &CNolSchedData::LastRunDate, nullptr},
});

// The arguments of a stored entry without their values, for who fills them column by column.
inline InitEditArguments LaterArguments() {
    constexpr GivenLater l;
    return {l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l, l};
}

inline std::string_view NameOf(const EntryColumn& entryColumn) {
    return std::visit([](const auto& column) { return column.sName; }, entryColumn);
}

}  // namespace NolSchedCtls::inline v1
