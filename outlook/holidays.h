// The days that a host keeps as holidays.
#pragma once

#include <memory>
#include <vector>

#include "outlook/moment.h"

namespace NolSchedCtls::inline v1 {

// Never changes; copies share the days, so that each of many schedules may hold one.
class Holidays {
  public:
    Holidays() = default;
    // In any order, a day as often as it comes. Times of day fall away.
    explicit Holidays(const std::vector<DateTime>& days);

    bool Contain(Day day) const;

  private:
    std::shared_ptr<const std::vector<Day>> sorted;
};

}  // namespace NolSchedCtls::inline v1
