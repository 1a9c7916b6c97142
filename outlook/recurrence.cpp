#include "outlook/recurrence.h"

#include <array>
#include <charconv>
#include <string_view>

#include "NolSchedCtls/base/app_constants.h"
#include "NolSchedCtls/base/error.h"

namespace NolSchedCtls::inline v1 {

namespace {

constexpr std::string_view codes = "OHDWMA";

constexpr std::array includes = {
    &CNolSchedData::IncludeSundays,    &CNolSchedData::IncludeMondays,   &CNolSchedData::IncludeTuesdays,
    &CNolSchedData::IncludeWednesdays, &CNolSchedData::IncludeThursdays, &CNolSchedData::IncludeFridays,
    &CNolSchedData::IncludeSaturdays,  &CNolSchedData::IncludeHolidays,  &CNolSchedData::IncludeDayAfterHol};

struct Bounds {
    std::string_view usedBy;  // codes
    std::string_view property;
    std::int32_t CNolSchedData::*number;
    std::int32_t least;
    std::int32_t most;
};

// Wider than what the tab offers where a larger number means something, too.
constexpr std::array bounds = {
    Bounds{"HDWMA", "Frequency", &CNolSchedData::Frequency, 1, 9999},
    Bounds{"WA", "WhichWeekday", &CNolSchedData::WhichWeekday, 1, 7},
    Bounds{"M", "WhichMonthDate", &CNolSchedData::WhichMonthDate, 0, 31},
    Bounds{"A", "WhichWeek", &CNolSchedData::WhichWeek, 0, 5},
};

[[noreturn]] void Refuse(std::string_view property, const std::string& value, const std::string& offer) {
    throw NolSchedError(std::string(property) + " is " + value + ", not " + offer);
}

void CheckNumber(std::string_view property, std::int32_t value, std::int32_t least, std::int32_t most) {
    if (value < least || value > most)
        Refuse(property, std::to_string(value), std::to_string(least) + " to " + std::to_string(most));
}

Moment CheckedMoment(std::string_view property, DateTime dateTime) {
    if (dateTime >= DateTimeOf(earliestMoment) && dateTime < DateTimeOf(latestMoment) + 1)
        return MomentOf(dateTime);
    if (dateTime == 0) throw NolSchedError(std::string(property) + " is missing");
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), dateTime).ptr;
    Refuse(property, {text.data(), end}, "a date of the years 1900 to 9999");
}

RecurrenceCode CheckedCode(const std::string& periodicity) {
    if (periodicity.size() != 1 || codes.find(periodicity) == std::string_view::npos)
        Refuse("Periodicity", '"' + periodicity + '"', "O, H, D, W, M or A");
    return RecurrenceCode{periodicity.front()};
}

ExcludedDays ReadExcluded(const CNolSchedData& record) {
    ExcludedDays excluded;
    for (std::size_t kind = 0; kind < includes.size(); ++kind) excluded[kind] = record.*includes[kind] != "Y";
    return excluded;
}

Moment ReadLast(const CNolSchedData& record) {
    const Moment last = CheckedMoment("FinalDateTime", record.FinalDateTime);
    return DayOf(last) == DayOf(MomentOf(MAppConstants::NoEndDate)) ? latestMoment : last;
}

int ReadFrequency(const CNolSchedData& record, RecurrenceCode code, const OutlookSettings& settings) {
    if (code == RecurrenceCode::Once) return 1;
    if (code != RecurrenceCode::Hourly) return record.Frequency;
    constexpr const char* setting = "Period Minutes";
    if (!settings.periodText.empty()) Refuse(setting, '"' + settings.periodText + '"', "1 to 1440");
    CheckNumber(setting, settings.periodMinutes, 1, 1440);
    return record.Frequency * settings.periodMinutes;
}

// Of any number: only codes that have a weekday read it, and theirs is checked.
std::chrono::weekday ReadWeekday(const CNolSchedData& record) {
    const auto fromOne = static_cast<unsigned>(record.WhichWeekday);
    return std::chrono::weekday{(fromOne + 6) % 7};
}

}  // namespace

Recurrence ReadRecurrence(const CNolSchedData& record, const OutlookSettings& settings) {
    const RecurrenceCode code = CheckedCode(record.Periodicity);
    for (const Bounds& row : bounds)
        if (row.usedBy.find(record.Periodicity) != std::string_view::npos)
            CheckNumber(row.property, record.*row.number, row.least, row.most);
    const Moment first = CheckedMoment("FirstDateTime", record.FirstDateTime);
    const Moment last = ReadLast(record);
    return {.code = code,
            .frequency = ReadFrequency(record, code, settings),
            .number = code == RecurrenceCode::MonthDay ? record.WhichMonthDate : record.WhichWeek,
            .weekday = ReadWeekday(record),
            .excluded = ReadExcluded(record),
            .first = first,
            .last = code == RecurrenceCode::Once ? std::min(first, last) : last};
}

}  // namespace NolSchedCtls::inline v1
