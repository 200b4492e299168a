#include "measurement.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "process.h"

namespace orvell::benchmarks {
namespace {

#ifdef _WIN32
constexpr std::string_view kBuild = "wine32";
#else
constexpr std::string_view kBuild = "linux32";
#endif
constexpr double kMinimumSeconds = 0.25;

std::string_view Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

double Now() {
    static const bool countsCpuTime = Environment("CLOCK") == "cpu";
    if (countsCpuTime) {
        return ProcessCpuSeconds();
    }
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

std::size_t RoundCount() {
    const int count = std::atoi(std::string(Environment("RUNS")).c_str());
    return count > 0 ? static_cast<std::size_t>(count) : 5;
}

/// Seconds that one pass takes.
double MeasureRound(const std::function<void()>& pass) {
    const double start = Now();
    int passes = 0;
    double elapsed = 0;
    while (elapsed < kMinimumSeconds) {
        pass();
        ++passes;
        elapsed = Now() - start;
    }
    return elapsed / passes;
}

void PrintLine(std::string_view group, std::string_view name, double megabytes, double figure,
               double spread) {
    std::printf("%.*s\t%.*s\t%.*s\t%.0f\t%.2f\t%.2f\n", static_cast<int>(group.size()),
                group.data(), static_cast<int>(kBuild.size()), kBuild.data(),
                static_cast<int>(name.size()), name.data(), megabytes, figure, spread);
    std::fflush(stdout);
}

}  // namespace

void Measure(const Workload& workload, const std::function<void()>& pass) {
    pass();
    const std::string_view only = Environment("ONLY");
    if (!only.empty() && only != workload.group) {
        return;
    }
    std::vector<double> rounds(RoundCount());
    std::ranges::generate(rounds, [&] { return MeasureRound(pass); });
    std::ranges::sort(rounds);
    const double median = rounds[rounds.size() / 2];
    PrintLine(workload.group, workload.name, workload.bytes / median / 1e6,
              median / workload.items * 1e9, rounds.back() / rounds.front());
}

void PrintFigure(std::string_view group, std::string_view name, double figure) {
    PrintLine(group, name, 0, figure, 1);
}

void Require(bool condition, std::string_view what) {
    if (!condition) {
        std::printf("# %.*s NO FIGURES: %.*s\n", static_cast<int>(kBuild.size()), kBuild.data(),
                    static_cast<int>(what.size()), what.data());
        std::exit(3);
    }
}

}  // namespace orvell::benchmarks
