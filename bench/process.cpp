#include "bench/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace NolSchedCtls::Bench {

namespace {

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

double SecondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    std::string made = std::filesystem::temp_directory_path() / "nolsched-XXXXXX";
    if (mkdtemp(made.data()) == nullptr) throw std::runtime_error(made + " cannot be made.");
    path = made;
}

Finished Run(const std::vector<std::string>& command, const std::vector<std::string>& environment) {
    auto arguments = command;
    auto variables = environment;
    for (char** variable = environ; *variable != nullptr; ++variable) variables.emplace_back(*variable);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error = posix_spawn(&child, arguments[0].c_str(), &actions, nullptr, Pointers(arguments).data(),
                                  Pointers(variables).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error(arguments[0] + " cannot be run.");
    Finished finished;
    rusage usage{};
    wait4(child, &finished.status, 0, &usage);
    finished.nPeakKilobytes = usage.ru_maxrss;
    finished.seconds = SecondsOf(usage.ru_utime) + SecondsOf(usage.ru_stime);
    if (finished.status != 0) throw std::runtime_error(arguments[0] + " failed.");
    return finished;
}

}  // namespace NolSchedCtls::Bench
