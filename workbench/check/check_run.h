#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace workbench::check {

/// What the program tells its caller; documented in its help.
enum class ExitCode : int { Passed = 0, Failed = 1, WrongUsage = 2, NotLoaded = 3 };

struct Options {
    std::string module;
    std::uint32_t seed = 1;
    std::string theme;  ///< only the checks of this one; empty: all
};

[[nodiscard]] bool IsTheme(std::string_view name);

/// Runs the checks on the module and prints a line for each.
[[nodiscard]] ExitCode CheckModule(const Options& options);

}  // namespace workbench::check
