#include "tabs/override/override_kind.h"

namespace NolSchedCtls {

namespace {

constexpr std::array homFields = {
    NumberField{"fraDuration", "Study Duration  ", "txtDuration", "Label1", "minutes", 4, "Study Duration",
                "minutes", 10, 1439, 1, ".", &CNolOverride::Duration},
};

}  // namespace

constinit const OverrideKind homOverride = {*FindStudyKind(MAppConstants::homStudy), "&Override HOM Study",
                                            "HOM Override.", homFields, ""};

}  // namespace NolSchedCtls
