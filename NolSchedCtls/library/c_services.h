// Services whose work is done by the call-backs of a host in another language.
#pragma once

#include <string>

#include "NolSchedCtls/library/c_interface.h"

namespace NolSchedCtls::inline v1::C {

void InstallCalledServices(const NolSchedServices& services);

// What the thread's reports of failures have said since this was last asked, empty for none.
std::string TakeReports();

}  // namespace NolSchedCtls::inline v1::C
