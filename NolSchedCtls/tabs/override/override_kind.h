// What makes one override tab differ from the next: everything is told by one row a study kind.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "NolSchedCtls/records/nol_override.h"
#include "NolSchedCtls/records/study_kinds.h"

namespace NolSchedCtls::inline v1 {

// A text box with its frame, its unit after it, and its place in the override.
struct NumberField {
    std::string_view sFrame;
    std::string_view sFrameCaption;
    std::string_view sTextBox;
    std::string_view sUnitLabel;
    std::string_view sUnitCaption;
    std::size_t nMaxLength;     // characters
    std::string_view sSubject;  // as messages name it
    std::string_view sUnit;     // as messages name it
    std::int32_t nLowest;
    std::int32_t nHighest;
    std::int32_t nStep;          // a good value is a multiple of it
    std::string_view sRangeEnd;  // ends the range message
    std::int32_t CNolOverride::*pValue;
};

struct OverrideKind {
    const StudyKind& study;
    std::string_view sBoxCaption;
    std::string_view sScenarioHeading;          // of a scenario failure; empty for a kind without a scenario
    std::span<const NumberField> numberFields;  // top to bottom, in the order of the checks
    std::string_view sNote;                     // below the frames; empty for none
};

// In the order of studyKinds.
extern const std::array<OverrideKind, studyKinds.size()> overrideKinds;
inline const OverrideKind& homOverride = overrideKinds[0];
inline const OverrideKind& plmOverride = overrideKinds[1];
inline const OverrideKind& rfcOverride = overrideKinds[2];
inline const OverrideKind& vcsOverride = overrideKinds[3];

}  // namespace NolSchedCtls::inline v1
