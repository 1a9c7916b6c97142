// How dates are written and where weeks begin in the user's region.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "NolSchedCtls/services/date_settings.h"

namespace NolSchedCtls {

struct Region {
    DateFieldOrder dateOrder = DateFieldOrder::MonthFirst;
    std::int32_t firstDayOfWeek = 1;  // Sunday, as IDateSettings tells it
};

// "us", "eu" or "iso"; nothing for any other name.
std::optional<Region> RegionNamed(std::string_view name);

// That of the locale which LC_ALL, else LC_TIME, else LANG names. "C", and a locale that is not installed,
// are "us". The locale of the process stays as it is.
Region RegionOfUser();

}  // namespace NolSchedCtls
