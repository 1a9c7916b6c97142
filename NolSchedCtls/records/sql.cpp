#include "NolSchedCtls/records/sql.h"

#include <memory>
#include <string>

#include "NolSchedCtls/base/live_objects.h"
#include "NolSchedCtls/records/nol_sched_data.h"
#include "NolSchedCtls/services/provider.h"

namespace NolSchedCtls::inline v1::MSQL {

namespace {

std::shared_ptr<CNolOverride> OverrideOfRow(const ILintelRows& rows) {
    const auto number = [&](const char* column) {
        const LintelField field = rows.Fields(column);
        return LintelDb().FieldToNumber(field, 0);
    };
    const auto text = [&rows](const char* column) { return FieldToText(rows.Fields(column)); };
    // In the order of the columns, so that of two bad ones the first is told.
    const auto nId = number("NOL_OverrideId");
    std::string sType = text("Type");
    const auto nScenarioId = number("ScenarioId");
    const auto nDuration = number("Duration");
    const auto nPolling = number("Polling_Interval");
    const auto nDelay = number("Retrieve_Delay");
    auto item = Counted(std::make_shared<CNolOverride>());
    item->Initialize(nId, std::move(sType), nScenarioId, nDuration, nPolling, nDelay, text("ClearLog"));
    return item;
}

void Insert(const CNolOverride& override, std::int32_t nId) {
    const auto wrapped = [](std::int32_t number) { return LintelDb().NumberToValue(number, -1); };
    const std::vector<LintelValue> row = {std::int64_t{nId},
                                          override.OverrideType,
                                          wrapped(override.ScenarioId),
                                          wrapped(override.Duration),
                                          wrapped(override.Polling_Interval),
                                          wrapped(override.Retrieve_Delay),
                                          override.ClearLog};
    const std::string values = LintelDb().JoinValues(row);  // a host may replace its services within
    LintelDb().ExecuteStatement(
        "INSERT INTO NOL_Override (NOL_OverrideId, Type, ScenarioId, Duration, Polling_Interval, "
        "Retrieve_Delay, ClearLog) VALUES (" +
        values + ")");
}

}  // namespace

void DeleteNolOverrides(std::int32_t nId) {
    LintelDb().ExecuteStatement("DELETE FROM NOL_Override WHERE NOL_OverrideId = " + std::to_string(nId));
}

void InsertNolOverride(const CNolOverride& override, std::int32_t nId) {
    try {
        Insert(override, nId);
    } catch (...) {
        LintelFailureReport()->ReportFailure("");
    }
}

void LoadNolOverrides(CNolSchedData& record) {
    const auto rows = LintelDb().OpenRows(
        {.sQuery = "SELECT * FROM NOL_Override WHERE NOL_OverrideId = " + std::to_string(record.Id)});
    if (!rows) throw NolSchedError("The database gave no rows of overrides, not even an empty set.");
    for (; !rows->AtEnd(); rows->MoveNext()) {
        auto item = OverrideOfRow(*rows);
        std::string type = item->OverrideType;
        record.AddNolOverride(std::move(item), std::move(type));
    }
}

}  // namespace NolSchedCtls::inline v1::MSQL
