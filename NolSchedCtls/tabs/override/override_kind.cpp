#include "NolSchedCtls/tabs/override/override_kind.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr std::array homFields = {
    NumberField{"fraDuration", "Study Duration  ", "txtDuration", "Label1", "minutes", 4, "Study Duration",
                "minutes", 10, 1439, 1, ".", &CNolOverride::Duration},
};

constexpr std::array plmFields = {
    NumberField{"fraDuration", "Study Duration  ", "txtDuration", "Label1(0)", "minutes", 4, "Study Duration",
                "minutes", 1, 1440, 1, ".", &CNolOverride::Duration},
    NumberField{"fraRetrieveDelay", "Retrieve Delay  ", "txtRetrieveDelay", "Label1(1)", "minutes", 2,
                "Retrieve Delay", "minutes", 1, 10, 1, ".", &CNolOverride::Retrieve_Delay},
};

constexpr std::array rfcFields = {
    NumberField{"fraDuration", "Study Duration  ", "txtDuration", "Label1(0)", "minutes", 3, "Study Duration",
                "minutes", 15, 240, 1, ".", &CNolOverride::Duration},
    NumberField{"fraPollingInterval", "Polling Interval  ", "txtPollingInterval", "Label1(1)", "seconds", 2,
                "Polling Interval", "seconds", 2, 60, 1, ".", &CNolOverride::Polling_Interval},
};

constexpr std::array vcsFields = {
    NumberField{"fraDuration", "Study Duration  ", "txtDuration", "Label1(0)", "minutes", 3, "Study Duration",
                "minutes", 15, 480, 15, " and \r\nexpressed in increments of quarter hours (15, 30, 45,etc).",
                &CNolOverride::Duration},
    NumberField{"fraRetrieveDelay", "Collect Data File ", "txtRetrieveDelay", "Label1(1)",
                "Minutes After the VCSA Study is Scheduled to End on the OMP", 3, "Retrieve Delay", "minutes",
                1, 120, 1, ".", &CNolOverride::Retrieve_Delay},
};

// The runs of blanks make each item start a line of its own in the label's width.
constexpr std::string_view vcsNote =
    "Note:"
    "                                                                    "
    "                                                                 "
    "(1)   Re-collected automatically if file size or date/time stamp change on OMP."
    "               "
    "(2)   VCSA studies are run using local time of OMP, not that of Halverny Server.";

}  // namespace

constinit const std::array<OverrideKind, studyKinds.size()> overrideKinds = {
    OverrideKind{studyKinds[0], "&Override HOM Study", "HOM Override.", homFields, ""},
    OverrideKind{studyKinds[1], "&Override PLM Study", "PLM Override.", plmFields, ""},
    OverrideKind{studyKinds[2], "&Override RF Call Trace Study", "", rfcFields, ""},
    OverrideKind{studyKinds[3], "&Override VCSA Study", "", vcsFields, vcsNote},
};

}  // namespace NolSchedCtls::inline v1
