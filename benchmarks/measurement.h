#pragma once

#include <functional>
#include <string_view>

namespace orvell::benchmarks {

/// What one pass of a measurement works on.
struct Workload {
    std::string_view group;
    std::string_view name = "orvell";
    double bytes = 0;  ///< 0: no throughput is told
    double items = 1;
};

/// Runs `pass` once to warm up, then measures it and prints the line "group build name MB/s
/// ns-per-item max/min", separated by tabs. The figure is the median of several rounds (environment
/// variable RUNS, default 5), each of as many passes as take a quarter of a second. With CLOCK=cpu
/// the CPU time of the process counts, else the time that passes. With ONLY=group the other groups
/// are passed through once, without a figure.
void Measure(const Workload& workload, const std::function<void()>& pass);

/// Prints a line of the same form for a figure that is no time.
void PrintFigure(std::string_view group, std::string_view name, double figure);

/// Ends the program with a message unless the measured work was really done.
void Require(bool condition, std::string_view what);

}  // namespace orvell::benchmarks
