#include "host/window/field_text.h"

#include <array>

#include "host/window/qt_text.h"

namespace NolSchedCtls {

namespace {

struct Row {
    std::string_view field;  // one that ends in a parenthesis is of each field of an array
    const char* name;
    const char* purpose;
};

constexpr std::array rows = {
    Row{"fdocRptGroup", "", "The study group that runs; type a part of its name or pick it."},
    Row{"txtRptGrp", "", "The study group of an immediate entry."},
    Row{"ctlPurgeOptions", "", "Whether and after how many days results are deleted."},
    Row{"ctlDownloadOptions", "", "How results are downloaded."},
    Row{"chkHom", "", "Gives the HOM study settings of its own."},
    Row{"chkPlm", "", "Gives the PLM study settings of its own."},
    Row{"chkRfc", "", "Gives the RF Call Trace study settings of its own."},
    Row{"chkVcs", "", "Gives the VCSA study settings of its own."},
    Row{"chkCreateFiles", "", "Writes .efg and .pfg files of the results."},
    Row{"SSDStartDate", "", "The day of the first run; Alt+Down opens a calendar."},
    Row{"chkEndDate", "", "Ticked if the schedule ends."},
    Row{"SSDEndDate", "End Date", "The last day of the schedule; Alt+Down opens a calendar."},
    Row{"txtNoEndDate", "End Date", "The schedule has no end."},
    Row{"cboPeriod", "", "How the entry recurs; the rest of the sentence follows it."},
    Row{"cboDayNum", "Day number", "Which one of the month."},
    Row{"cboDayName", "Day", "A weekday, or a day of the month."},
    Row{"cboFrequency", "Every", "Runs every so many units."},
    Row{"dtpStartTime", "", "The time of day of each run."},
    Row{"cbExcludeDay(7)", "", "Ticked if the entry does not run on holidays."},
    Row{"cbExcludeDay(8)", "", "Ticked if the entry does not run on the day after a holiday."},
    Row{"cbExcludeDay(", "", "Ticked if the entry does not run on this day of the week."},
    Row{"chkOverride", "", "Gives this study settings of its own; its fields then appear below."},
    Row{"fdocCBScenario", "", "May be empty; type a part of its name or pick it."},
    Row{"txtDuration", "", "How long the study runs; may be empty."},
    Row{"txtRetrieveDelay", "", "How long after the study its data is collected; may be empty."},
    Row{"txtPollingInterval", "", "How often the study polls; may be empty."},
};

bool IsOf(const Row& row, const std::string& name) {
    return row.field == name || (row.field.ends_with('(') && name.starts_with(row.field));
}

}  // namespace

FieldText TextOf(const ViewField& field) {
    FieldText text;
    const auto* const row =
        std::find_if(rows.begin(), rows.end(), [&](const Row& r) { return IsOf(r, field.Name()); });
    if (row != rows.end()) text = {QString::fromUtf8(row->name), QString::fromUtf8(row->purpose)};
    const Label* const label = field.Control().LabelOf(field);
    if (text.name.isEmpty()) text.name = ToQt((label == nullptr ? field : *label).PlainCaption());
    if (label != nullptr && text.name.endsWith(u':')) text.name.chop(1);
    if (text.name.isEmpty() && field.Container() != nullptr)
        text.name = Trimmed(field.Container()->Caption());
    return text;
}

}  // namespace NolSchedCtls
