// Claims about speed and size. Each names a benchmark and, for a ratio, the one beside it; both are measured
// in the same run, turn by turn, so that a noisy machine disturbs them alike.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace NolSchedCtls::Bench {

struct Claim {
    std::string work;
    std::string ours;          // a benchmark
    std::string against = {};  // another one; empty: the figure is absolute
    double figure = 0;         // at most, a time in nanoseconds; 0: there is none, the row only reports
    const char* counter = "";  // of the benchmarks; empty: their time
    const char* unit = "";     // of the counter
};

// Registers a benchmark of one step. What the step holds on to is made once, before it is measured.
template <class Step>
benchmark::internal::Benchmark* Measure(const std::string& name, Step step) {
    return benchmark::RegisterBenchmark(name.c_str(),
                                        [step](benchmark::State& state) mutable {
                                            for (auto _ : state) step();
                                        })
        ->UseRealTime();
}

// Runs all benchmarks and prints a row for each claim, made of the medians. "--once" as an argument: each
// runs once, to show that it runs. Gives the exit status.
int RunClaims(int argc, char** argv, const std::vector<Claim>& claims);

}  // namespace NolSchedCtls::Bench
