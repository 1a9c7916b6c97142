// The override of one study kind: settings that replace the study's own for one schedule entry.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

// A number of -1 says that the field has no value; readers take anything below 1 as none, since a column
// without a value is read back as 0. Nothing is checked here: ranges live in the tabs.
class NOLSCHED_API CNolOverride {
  public:
    std::int32_t NOL_OverrideId = -1;    // Id of the schedule entry that owns the override
    std::string OverrideType;            // the study kind, as in MAppConstants
    std::int32_t ScenarioId = -1;        // Id of the scenario document
    std::int32_t Duration = -1;          // minutes
    std::int32_t Polling_Interval = -1;  // seconds
    std::int32_t Retrieve_Delay = -1;    // minutes
    std::string ClearLog;  // from row to record and back; no tab shows it, its kind's SaveData drops it

    void Initialize(std::int32_t nNOL_OverrideIdA, std::string sOverrideTypeA, std::int32_t nScenarioIdA,
                    std::int32_t nDurationA, std::int32_t nPolling_IntervalA, std::int32_t nRetrieve_DelayA,
                    std::string sClearLogA) {
        NOL_OverrideId = nNOL_OverrideIdA;
        OverrideType = std::move(sOverrideTypeA);
        ScenarioId = nScenarioIdA;
        Duration = nDurationA;
        Polling_Interval = nPolling_IntervalA;
        Retrieve_Delay = nRetrieve_DelayA;
        ClearLog = std::move(sClearLogA);
    }
};

}  // namespace NolSchedCtls::inline v1
