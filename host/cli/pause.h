// How a command that goes on until it is stopped, or waits, learns that it is to end.
#pragma once

#include <chrono>

namespace NolSchedCtls {

// Waits. False, and at once, when SIGINT or SIGTERM has come since the first call, or standard output is
// closed. A second signal ends the process.
bool PauseUnlessStopped(std::chrono::milliseconds wait);

// Whether SIGINT has come since the last call. From the first call on it no longer ends the process.
bool TakeInterrupt();

}  // namespace NolSchedCtls
