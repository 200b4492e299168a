#include "check/check_run.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

#include "check/checks.h"

namespace workbench::check {
namespace {

constexpr int kThemeWidth = 14;
constexpr int kNameWidth = 74;

/// Both ways of lying between guard pages; the second only after the first went well. Empty when
/// all is well.
std::string Failure(Bench& bench, const Check& check, std::uint32_t seed) {
    for (const Edge edge : {Edge::End, Edge::Start}) {
        bench.Run(check.run, edge, seed);
        if (bench.HasFailed()) {
            return bench.Failures();
        }
    }
    return {};
}

/// The line's beginning is there before the check: what ends the program is named by it.
void Announce(const Check& check) {
    std::printf("%-*.*s%-*.*s", kThemeWidth, static_cast<int>(check.theme.size()),
                check.theme.data(), kNameWidth, static_cast<int>(check.name.size()),
                check.name.data());
    std::fflush(stdout);
}

std::vector<Check> ChecksOf(std::string_view theme) {
    std::vector<Check> checks;
    for (const auto ofTheme :
         {TableChecks(), ReleaseChecks(), ValueChecks(), TransferChecks(), TypeChecks(),
          ResolveChecks(), DialogChecks(), ConfigurationChecks(), ManagementChecks(),
          ListFileChecks(), AccessorChecks(), SignalChecks()}) {
        std::ranges::copy_if(ofTheme, std::back_inserter(checks), [&](const Check& check) {
            return theme.empty() || check.theme == theme;
        });
    }
    return checks;
}

/// Prints a check's line; true when all was well.
bool RunCheck(Bench& bench, const Check& check, std::uint32_t seed) {
    Announce(check);
    const std::string failure = Failure(bench, check, seed);
    if (failure.empty()) {
        std::printf("ok\n");
        return true;
    }
    std::printf("FAILED\n    %s\n", failure.c_str());
    bench.Reload();  // a module that has failed is not trusted with the next check
    return false;
}

}  // namespace

bool IsTheme(std::string_view name) {
    return !name.empty() && !ChecksOf(name).empty();
}

ExitCode CheckModule(const Options& options) {
    if (!MessageBoxes::CanBeShown()) {
        std::fputs(
            "This session cannot show windows, so that the module's messages would be lost. "
            "Start it under a display (with Wine: xvfb-run -a).\n",
            stderr);
        return ExitCode::NotLoaded;
    }
    Bench bench(options.module, options.seed);
    if (!bench.Reload()) {
        std::fprintf(stderr, "%s\n", bench.Failures().c_str());
        return ExitCode::NotLoaded;
    }
    const std::vector<Check> checks = ChecksOf(options.theme);
    const auto passed = std::ranges::count_if(
        checks, [&](const Check& check) { return RunCheck(bench, check, options.seed); });
    const std::size_t failed = checks.size() - static_cast<std::size_t>(passed);
    std::printf("\n%u checks, %u failed (seed %u)\n", checks.size(), failed, options.seed);
    return failed == 0 ? ExitCode::Passed : ExitCode::Failed;
}

}  // namespace workbench::check
