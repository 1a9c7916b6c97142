#include "bench/claims.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <map>
#include <string_view>

namespace NolSchedCtls::Bench {

namespace {

// Keeps every measured value under "name" or "name:counter".
class Collector : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred) std::cerr << run.benchmark_name() << ": " << run.error_message << '\n';
            hasFailed = hasFailed || run.error_occurred;
            if (run.run_type != Run::RT_Iteration) continue;
            const std::string& name = run.run_name.function_name;
            values[name + ":"].push_back(run.GetAdjustedRealTime());
            for (const auto& [counter, value] : run.counters) values[name + ":" + counter].push_back(value);
        }
    }

    double Median(const std::string& name, const std::string& counter) {
        auto& measured = values.at(name + ":" + counter);
        const auto middle = measured.begin() + static_cast<std::ptrdiff_t>(measured.size() / 2);
        std::nth_element(measured.begin(), middle, measured.end());
        return *middle;
    }

    bool hasFailed = false;

  private:
    std::map<std::string, std::vector<double>> values;
};

std::string Number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), value < 10 ? "%.2f" : value < 100 ? "%.1f" : "%.0f", value);
    return text.data();
}

std::string Duration(double nanoseconds) {
    constexpr std::array<std::pair<double, const char*>, 3> units = {
        std::pair{1e9, " s"}, std::pair{1e6, " ms"}, std::pair{1e3, " us"}};
    for (const auto& [size, unit] : units)
        if (nanoseconds >= size) return Number(nanoseconds / size) + unit;
    return Number(nanoseconds) + " ns";
}

std::string Measured(const Claim& claim, double value) {
    return *claim.counter == '\0' ? Duration(value) : Number(value) + claim.unit;
}

std::string Figure(const Claim& claim) {
    if (claim.figure == 0) return "";
    return claim.against.empty() && *claim.counter == '\0' ? Duration(claim.figure) : Number(claim.figure);
}

void PrintRow(const Claim& claim, Collector& collector) {
    const double ours = collector.Median(claim.ours, claim.counter);
    const bool isRatio = !claim.against.empty();
    const double against = isRatio ? collector.Median(claim.against, claim.counter) : 1;
    const bool isReached = ours / against <= claim.figure;
    std::printf("%-8s %-66s %10s %10s %7s %7s\n",
                claim.figure == 0 ? "report"
                : isReached       ? "reached"
                                  : "MISSED",
                claim.work.c_str(), Measured(claim, ours).c_str(),
                isRatio ? Measured(claim, against).c_str() : "",
                isRatio ? Number(ours / against).c_str() : "", Figure(claim).c_str());
}

}  // namespace

int RunClaims(int argc, char** argv, const std::vector<Claim>& claims) {
    const bool isOnce = argc > 1 && std::string_view(argv[1]) == "--once";
    std::vector<std::string> options = {argv[0], "--benchmark_min_time=0.05", "--benchmark_repetitions=9",
                                        "--benchmark_enable_random_interleaving=true"};
    if (isOnce) options = {argv[0], "--benchmark_min_time=0"};
    std::vector<char*> arguments;
    for (auto& option : options) arguments.push_back(option.data());
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    if (collector.hasFailed) return 1;
    benchmark::ClearRegisteredBenchmarks();  // what they hold on to ends before the program's application
                                             // does
    for (const Claim& claim : claims) PrintRow(claim, collector);
    return 0;
}

}  // namespace NolSchedCtls::Bench
