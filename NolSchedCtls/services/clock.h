// The user's clock.
#pragma once

#include "NolSchedCtls/base/date_time.h"

namespace NolSchedCtls::inline v1 {

class NOLSCHED_API IClock {
  public:
    virtual ~IClock() = default;
    // The present date and time on the user's clock.
    virtual DateTime Now() = 0;
};

}  // namespace NolSchedCtls::inline v1
