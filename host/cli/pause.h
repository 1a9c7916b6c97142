// How a command that goes on until it is stopped learns that it is to end.
#pragma once

#include <chrono>

namespace NolSchedCtls {

// Waits. False, and at once, when SIGINT or SIGTERM has come since the first call, or standard output is
// closed. A second signal ends the process.
bool PauseUnlessStopped(std::chrono::milliseconds wait);

}  // namespace NolSchedCtls
