#include "NolSchedCtls/records/nol_override.h"

#include <utility>

namespace NolSchedCtls {

void CNolOverride::Initialize(std::int32_t nNOL_OverrideIdA, std::string sOverrideTypeA,
                              std::int32_t nScenarioIdA, std::int32_t nDurationA,
                              std::int32_t nPolling_IntervalA, std::int32_t nRetrieve_DelayA,
                              std::string sClearLogA) {
    NOL_OverrideId = nNOL_OverrideIdA;
    OverrideType = std::move(sOverrideTypeA);
    ScenarioId = nScenarioIdA;
    Duration = nDurationA;
    Polling_Interval = nPolling_IntervalA;
    Retrieve_Delay = nRetrieve_DelayA;
    ClearLog = std::move(sClearLogA);
}

}  // namespace NolSchedCtls
