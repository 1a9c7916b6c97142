// The numbers and the names of the weekdays.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "NolSchedCtls/base/export.h"

namespace NolSchedCtls::inline v1 {

// 1 is "Sunday", 7 "Saturday". Both throw ValueError for what is no weekday.
class NOLSCHED_API IDayConversion {
  public:
    virtual ~IDayConversion() = default;
    virtual std::string DayNameOfNumber(std::int32_t nNumber) = 0;
    virtual std::int32_t DayNumberOfName(std::string_view sName) = 0;
};

}  // namespace NolSchedCtls::inline v1
