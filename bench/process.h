// Other programs as the thing that is measured.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace NolSchedCtls::Bench {

struct Finished {
    int status = 0;
    double seconds = 0;       // of the processor
    long nPeakKilobytes = 0;  // at least this program's own, which counts until the other one begins
};

// Runs the program to its end, its output thrown away; it gets the given lines ("NAME=value") on top of this
// process's environment. Raises std::runtime_error if it cannot be run or fails.
Finished Run(const std::vector<std::string>& command, const std::vector<std::string>& environment = {});

// A folder of the process's own, which ends with the object.
struct TemporaryFolder {
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(path); }
    std::filesystem::path path;
};

}  // namespace NolSchedCtls::Bench
