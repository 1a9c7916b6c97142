// What the library takes: memory for an open entry, and the size of the shared library.
#include <malloc.h>

#include <cstdlib>
#include <filesystem>

#include "bench/claims.h"
#include "bench/open_entry.h"

namespace {

using namespace NolSchedCtls;
using namespace NolSchedCtls::Bench;

double BytesOfOpenEntry() {
    const OpenEntry first;  // the services, which all entries share, are made with it
    const std::size_t before = mallinfo2().uordblks;
    const OpenEntry entry;
    return static_cast<double>(mallinfo2().uordblks - before);
}

double BytesOfStrippedLibrary() {
    const auto stripped = std::filesystem::temp_directory_path() / "nolsched-stripped.so";
    if (std::system(("strip -o " + stripped.string() + " " SHARED_LIBRARY).c_str()) != 0) return 0;
    const auto size = std::filesystem::file_size(stripped);
    std::filesystem::remove(stripped);
    return static_cast<double>(size);
}

void Count(const char* name, double (*bytes)()) {
    benchmark::RegisterBenchmark(name, [bytes](benchmark::State& state) {
        double kilobytes = 0;
        for (auto _ : state) kilobytes = bytes() / 1024;
        state.counters["KB"] = kilobytes;
    })->Iterations(1);
}

}  // namespace

int main(int argc, char** argv) {
    UseMemory();
    Count("memory", BytesOfOpenEntry);
    Count("library", BytesOfStrippedLibrary);
    return RunClaims(argc, argv,
                     {{"memory of an open entry, without a window", "memory", "", 20, "KB", " KB"},
                      {"size of the stripped shared library", "library", "", 350, "KB", " KB"}});
}
