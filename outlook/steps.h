// Where the runs of a recurrence lie, before days are excluded. Both kinds jump to the wanted run.
#pragma once

#include <chrono>
#include <variant>

#include "outlook/recurrence.h"

namespace NolSchedCtls::inline v1 {

// Once, hourly, daily and weekly: without time zones the runs lie evenly.
struct EvenSteps {
    Moment base;
    std::chrono::seconds step;

    Moment FirstFrom(Moment from, Moment until) const;
};

// On a day or a weekday of every so many months. A month without that day has no run.
struct MonthSteps {
    std::chrono::year_month base;
    std::chrono::months step;
    std::chrono::seconds timeOfDay;
    int number;
    std::chrono::weekday weekday;
    bool isOnWeekday;

    Moment FirstFrom(Moment from, Moment until) const;
    Moment RunIn(std::chrono::year_month month) const;  // or noMoment
};

using Steps = std::variant<EvenSteps, MonthSteps>;

Steps StepsOf(const Recurrence& recurrence);

inline std::chrono::seconds StepLength(const Steps& steps) {
    return std::visit([](const auto& kind) -> std::chrono::seconds { return kind.step; }, steps);
}

// The first at or after `from`; where none is until `until`, some moment after it.
inline Moment FirstStepFrom(const Steps& steps, Moment from, Moment until) {
    return std::visit([&](const auto& kind) { return kind.FirstFrom(from, until); }, steps);
}

}  // namespace NolSchedCtls::inline v1
