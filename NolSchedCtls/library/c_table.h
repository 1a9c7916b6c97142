// The table of the C interface.
#pragma once

#include "NolSchedCtls/library/c_interface.h"

namespace NolSchedCtls::inline v1 {

// Lives as long as the library.
const NolSchedC1& CTable();

}  // namespace NolSchedCtls::inline v1
