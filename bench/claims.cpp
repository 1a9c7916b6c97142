#include "bench/claims.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <span>
#include <string_view>
#include <utility>

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
            const bool isManual = run.run_name.time_type == "manual_time";
            values[name + ":"].push_back(isSteady && !isManual ? run.GetAdjustedCPUTime()
                                                               : run.GetAdjustedRealTime());
            for (const auto& [counter, value] : run.counters) values[name + ":" + counter].push_back(value);
        }
    }

    explicit Collector(bool isSteadyA) : isSteady(isSteadyA) {}

    // The median of what a watch tells; or, for a busy machine, the least of the processor's time.
    double Typical(const std::string& name, const std::string& counter) {
        auto& measured = values.at(name + ":" + counter);
        const std::size_t place = isSteady ? 0 : measured.size() / 2;
        const auto middle = measured.begin() + static_cast<std::ptrdiff_t>(place);
        std::nth_element(measured.begin(), middle, measured.end());
        return *middle;
    }

    bool hasFailed = false;

  private:
    bool isSteady;
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

struct Row {
    double ours;
    double against;  // 1 for an absolute figure

    Row(const Claim& claim, Collector& collector)
        : ours(collector.Typical(claim.ours, claim.counter)),
          against(claim.against.empty() ? 1 : collector.Typical(claim.against, claim.counter)) {}
    double Ratio() const { return ours / against; }
};

void PrintRow(const Claim& claim, const Row& row) {
    const bool isRatio = !claim.against.empty();
    const bool isReached = row.Ratio() <= claim.figure;
    std::printf("%-8s %-66s %10s %10s %7s %7s\n",
                claim.figure == 0 ? "report"
                : isReached       ? "reached"
                                  : "MISSED",
                claim.work.c_str(), Measured(claim, row.ours).c_str(),
                isRatio ? Measured(claim, row.against).c_str() : "",
                isRatio ? Number(row.Ratio()).c_str() : "", Figure(claim).c_str());
}

// The value of an argument "--name=value"; nothing without it.
std::string Option(int argc, char** argv, std::string_view name) {
    for (const std::string_view argument : std::span(argv, static_cast<std::size_t>(argc)))
        if (argument.starts_with(name)) return std::string(argument.substr(name.size()));
    return {};
}

std::string InRegex(const std::string& name) {
    std::string escaped;
    for (const char letter : name) {
        if (std::string_view("^$.*+?()[]{}|\\").find(letter) != std::string_view::npos) escaped += '\\';
        escaped += letter;
    }
    return escaped;
}

// The benchmarks that the claims need, and no others.
std::string FilterFor(const std::vector<Claim>& claims) {
    std::string names;
    for (const Claim& claim : claims)
        for (const std::string& name : {claim.ours, claim.against})
            if (!name.empty()) names += (names.empty() ? "" : "|") + InRegex(name);
    return "--benchmark_filter=^(" + names + ")(/|$)";
}

std::vector<std::string> OptionsOf(Extent extent) {
    constexpr const char* alternating = "--benchmark_enable_random_interleaving=true";
    if (extent == Extent::Once) return {"--benchmark_min_time=0"};
    if (extent == Extent::Steady)
        return {"--benchmark_min_time=0.01", "--benchmark_repetitions=11", alternating};
    return {"--benchmark_min_time=0.05", "--benchmark_repetitions=9", alternating};
}

}  // namespace

Extent ExtentOf(int argc, char** argv) {
    for (const std::string_view argument : std::span(argv, static_cast<std::size_t>(argc))) {
        if (argument == "--once") return Extent::Once;
        if (argument == "--steady") return Extent::Steady;
    }
    return Extent::Whole;
}

int RunClaims(int argc, char** argv, std::vector<Claim> claims) {
    const Extent extent = ExtentOf(argc, argv);
    if (extent == Extent::Steady) std::erase_if(claims, [](const Claim& claim) { return !claim.isSteady; });
    if (claims.empty()) {
        benchmark::ClearRegisteredBenchmarks();
        return 0;
    }
    auto options = OptionsOf(extent);
    options.insert(options.begin(), argv[0]);
    options.push_back(FilterFor(claims));
    std::vector<char*> arguments;
    for (auto& option : options) arguments.push_back(option.data());
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    Collector collector(extent == Extent::Steady);
    benchmark::RunSpecifiedBenchmarks(&collector);
    if (collector.hasFailed) return 1;
    benchmark::ClearRegisteredBenchmarks();  // what they hold on to ends before the program's application
                                             // does
    std::ofstream ratios(Option(argc, argv, "--ratios="), std::ios::app);
    for (const Claim& claim : claims) {
        const Row row(claim, collector);
        PrintRow(claim, row);
        if (!claim.against.empty()) ratios << row.Ratio() << '\t' << claim.work << '\n';
    }
    return 0;
}

}  // namespace NolSchedCtls::Bench
