// The stored properties of an entry: one column each in NOL_Schedule, under the property's name.
#pragma once

#include <array>
#include <string_view>
#include <variant>

#include "NolSchedCtls/records/nol_sched_data.h"

namespace NolSchedCtls {

template <class T>
struct Column {
    using Value = T;

    std::string_view sName;
    T CNolSchedData::*pProperty;
    T InitEditArguments::*pArgument;  // nothing for what the host sets on the record itself
};

using EntryColumn = std::variant<Column<std::int32_t>, Column<std::string>, Column<DateTime>>;

namespace EntryColumns {

using Record = CNolSchedData;
using Edit = InitEditArguments;
using Number = Column<std::int32_t>;
using Text = Column<std::string>;
using Date = Column<DateTime>;

}  // namespace EntryColumns

// Id comes first.
inline const std::array<EntryColumn, 29>& AllEntryColumns() {
    using namespace EntryColumns;
    static constexpr std::array<EntryColumn, 29> columns = {
        Number{"Id", &Record::Id, &Edit::nIdA},
        Text{"EditorName", &Record::EditorName, &Edit::sEditorNameA},
        Date{"FirstDateTime", &Record::FirstDateTime, &Edit::dFirstDateTimeA},
        Date{"FinalDateTime", &Record::FinalDateTime, &Edit::dFinalDateTimeA},
        Date{"NextRunDate", &Record::NextRunDate, nullptr},
        Number{"WhichMonthDate", &Record::WhichMonthDate, &Edit::nWhichMonthDateA},
        Number{"WhichWeek", &Record::WhichWeek, &Edit::nWhichWeekA},
        Number{"WhichWeekday", &Record::WhichWeekday, &Edit::nWhichWeekdayA},
        Text{"Periodicity", &Record::Periodicity, &Edit::sPeriodicityA},
        Number{"Frequency", &Record::Frequency, &Edit::nFrequencyA},
        Text{"ScheduleActive", &Record::ScheduleActive, &Edit::sScheduleActiveA},
        Text{"IncludeMondays", &Record::IncludeMondays, &Edit::sIncludeMondaysA},
        Text{"IncludeTuesdays", &Record::IncludeTuesdays, &Edit::sIncludeTuesdaysA},
        Text{"IncludeWednesdays", &Record::IncludeWednesdays, &Edit::sIncludeWednesdaysA},
        Text{"IncludeThursdays", &Record::IncludeThursdays, &Edit::sIncludeThursdaysA},
        Text{"IncludeFridays", &Record::IncludeFridays, &Edit::sIncludeFridaysA},
        Text{"IncludeSaturdays", &Record::IncludeSaturdays, &Edit::sIncludeSaturdaysA},
        Text{"IncludeSundays", &Record::IncludeSundays, &Edit::sIncludeSundaysA},
        Text{"IncludeHolidays", &Record::IncludeHolidays, &Edit::sIncludeHolidaysA},
        Text{"IncludeDayAfterHol", &Record::IncludeDayAfterHol, &Edit::sIncludeDayAfterHolA},
        Number{"ClientMachineId", &Record::ClientMachineId, &Edit::nClientMachineIdA},
        Number{"RptGrpId", &Record::RptGrpId, &Edit::nRptGrpIdA},
        Text{"RunMode", &Record::RunMode, &Edit::sRunModeA},
        Text{"RetrieveMode", &Record::RetrieveMode, &Edit::sRetrieveModeA},
        Text{"AutoPurge", &Record::AutoPurge, &Edit::sAutoPurgeA},
        Number{"PurgeInterval", &Record::PurgeInterval, &Edit::nPurgeIntervalA},
        Text{"SubFolderName", &Record::SubFolderName, &Edit::sSubFolderNameA},
        Text{"CreateFiles", &Record::CreateFiles, &Edit::sCreateFilesA},
        Date{"LastRunDate", &Record::LastRunDate, nullptr},
    };
    return columns;
}

inline std::string_view NameOf(const EntryColumn& entryColumn) {
    return std::visit([](const auto& column) { return column.sName; }, entryColumn);
}

}  // namespace NolSchedCtls
