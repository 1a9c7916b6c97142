#include "host/cli/pause.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

namespace NolSchedCtls {

namespace {

volatile sig_atomic_t isStopped = 0;
volatile sig_atomic_t isInterrupted = 0;

bool ListenForSignals() {
    struct sigaction stop {};
    stop.sa_handler = [](int) { isStopped = 1; };
    stop.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &stop, nullptr);
    sigaction(SIGTERM, &stop, nullptr);
    return true;
}

bool ListenForInterrupts() {
    struct sigaction interrupt {};
    interrupt.sa_handler = [](int) { isInterrupted = 1; };
    interrupt.sa_flags = SA_RESTART;  // a line that is being read goes on
    return sigaction(SIGINT, &interrupt, nullptr) == 0;
}

// One that was closed from the start stands on a file to read from.
bool IsOutputOpen() { return (fcntl(STDOUT_FILENO, F_GETFL) & O_ACCMODE) != O_RDONLY; }

}  // namespace

bool PauseUnlessStopped(std::chrono::milliseconds wait) {
    [[maybe_unused]] static const bool listens = ListenForSignals();
    pollfd output{STDOUT_FILENO, 0, 0};  // wakes when nobody reads it any more
    if (isStopped == 0) poll(&output, 1, static_cast<int>(wait.count()));
    return isStopped == 0 && output.revents == 0 && IsOutputOpen();
}

bool TakeInterrupt() {
    [[maybe_unused]] static const bool listens = ListenForInterrupts();
    const bool was = isInterrupted != 0;
    isInterrupted = 0;
    return was;
}

}  // namespace NolSchedCtls
