#include "outlook/steps.h"

namespace NolSchedCtls::inline v1 {

namespace {

using namespace std::chrono;

// The least multiple of the step that is not below the distance.
template <class Distance>
Distance RoundedUp(Distance distance, Distance step) {
    if (distance <= Distance::zero()) return Distance::zero();
    return (distance + step - Distance{1}) / step * step;
}

year_month MonthOf(Moment moment) {
    const year_month_day date{DayOf(moment)};
    return date.year() / date.month();
}

Moment MidnightOf(const auto& date) { return date.ok() ? Moment{Day{date}} : noMoment; }

Moment DayIn(year_month month, int number) {
    if (number == 0) return MidnightOf(month / last);
    return MidnightOf(month / day{static_cast<unsigned>(number)});
}

Moment WeekdayIn(year_month month, weekday weekday, int number) {
    if (number == 0) return MidnightOf(month / weekday[last]);
    return MidnightOf(month / weekday[static_cast<unsigned>(number)]);
}

seconds LengthOf(const Recurrence& recurrence) {
    switch (recurrence.code) {
        case RecurrenceCode::Hourly:
            return minutes{recurrence.frequency};
        case RecurrenceCode::Weekly:
            return weeks{recurrence.frequency};
        default:
            return days{recurrence.frequency};
    }
}

// The first day's week counts as the first one, and begins on its Sunday. Its weekday may lie before the
// first day.
Moment WeekdayOfFirstWeek(const Recurrence& recurrence) {
    const weekday firstWeekday{DayOf(recurrence.first)};
    return recurrence.first - (firstWeekday - Sunday) + (recurrence.weekday - Sunday);
}

}  // namespace

Moment EvenSteps::FirstFrom(Moment from, Moment /*until*/) const {
    return base + RoundedUp(from - base, step);
}

Moment MonthSteps::FirstFrom(Moment from, Moment until) const {
    const year_month lastMonth = MonthOf(until);
    year_month month = base + RoundedUp(MonthOf(from) - base, step);
    for (; month <= lastMonth; month = month + step)  // += of libc++ stays within the year
        if (const Moment run = RunIn(month); run >= from && run != noMoment) return run;
    return noMoment;
}

Moment MonthSteps::RunIn(year_month month) const {
    const Moment midnight = isOnWeekday ? WeekdayIn(month, weekday, number) : DayIn(month, number);
    return midnight == noMoment ? noMoment : midnight + timeOfDay;
}

Steps StepsOf(const Recurrence& recurrence) {
    const Moment first = recurrence.first;
    const bool isOnWeekday = recurrence.code == RecurrenceCode::MonthWeekday;
    if (isOnWeekday || recurrence.code == RecurrenceCode::MonthDay)
        return MonthSteps{MonthOf(first),    months{recurrence.frequency}, first - DayOf(first),
                          recurrence.number, recurrence.weekday,           isOnWeekday};
    const bool isWeekly = recurrence.code == RecurrenceCode::Weekly;
    return EvenSteps{isWeekly ? WeekdayOfFirstWeek(recurrence) : first, LengthOf(recurrence)};
}

}  // namespace NolSchedCtls::inline v1
