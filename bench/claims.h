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
    // A ratio that comes out alike on a busy machine, to be held against an earlier run.
    bool isSteady = false;
};

// What is measured: everything, steady claims alone, or each thing once to show that it runs.
enum class Extent { Whole, Steady, Once };
// By the program's arguments: "--steady" or "--once".
Extent ExtentOf(int argc, char** argv);

// Registers a benchmark of one step, repeated until it has taken its time of the processor: on a busy machine
// as often as on an idle one. What the step holds on to is made once, before it is measured.
template <class Step>
benchmark::internal::Benchmark* Measure(const std::string& name, Step step) {
    return benchmark::RegisterBenchmark(name.c_str(), [step](benchmark::State& state) mutable {
        for (auto _ : state) step();
    });
}

// Runs the benchmarks and prints a row for each claim, made of the medians, in a steady run of the
// least times of the processor. "--ratios=FILE" as an argument: the ratios are added to that file, one a
// line. Gives the exit status.
int RunClaims(int argc, char** argv, std::vector<Claim> claims);

}  // namespace NolSchedCtls::Bench
