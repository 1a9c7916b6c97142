// The four study kinds: their names and the flags of the record that say whether their override is on.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/records/nol_sched_data.h"

namespace NolSchedCtls::inline v1 {

struct StudyKind {
    std::string_view sKey;  // at once key in Overrides, OverrideType, and tab name for the notifier
    std::string_view sFlag;
    std::string CNolSchedData::*pFlag;
};

// The tables of the tabs that have a row a kind take their size from this one: one without a row for a new
// kind does not compile.
inline constexpr std::array studyKinds = {
    StudyKind{MAppConstants::homStudy, "HomOvr", &CNolSchedData::HomOvr},
    StudyKind{MAppConstants::plmStudy, "PlmOvr", &CNolSchedData::PlmOvr},
    StudyKind{MAppConstants::rfcStudy, "RfcOvr", &CNolSchedData::RfcOvr},
    StudyKind{MAppConstants::vcsStudy, "VcsOvr", &CNolSchedData::VcsOvr},
};

// Nothing for a name that is not exactly a kind's.
constexpr const StudyKind* FindStudyKind(std::string_view sName) {
    for (const StudyKind& kind : studyKinds)
        if (kind.sKey == sName) return &kind;
    return nullptr;
}

}  // namespace NolSchedCtls::inline v1
