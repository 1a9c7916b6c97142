#include "outlook/holidays.h"

namespace NolSchedCtls::inline v1 {

Holidays::Holidays(const std::vector<DateTime>& days) {
    std::vector<Day> whole;
    whole.reserve(days.size());
    for (const DateTime day : days) whole.push_back(DayOf(MomentOf(day)));
    std::sort(whole.begin(), whole.end());
    sorted = std::make_shared<const std::vector<Day>>(std::move(whole));
}

bool Holidays::Contain(Day day) const {
    return sorted && std::binary_search(sorted->begin(), sorted->end(), day);
}

}  // namespace NolSchedCtls::inline v1
