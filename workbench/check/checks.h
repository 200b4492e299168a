#pragma once

#include <span>
#include <string_view>

#include "check/bench.h"

namespace workbench::check {

/// One line of the checker's table.
struct Check {
    std::string_view theme;
    std::string_view name;
    void (*run)(Bench&);
};

// The checks of each theme, in the order of the table. Each loads what it needs.
[[nodiscard]] std::span<const Check> TableChecks();
[[nodiscard]] std::span<const Check> ReleaseChecks();
[[nodiscard]] std::span<const Check> ValueChecks();
[[nodiscard]] std::span<const Check> TransferChecks();
[[nodiscard]] std::span<const Check> TypeChecks();
[[nodiscard]] std::span<const Check> ResolveChecks();
[[nodiscard]] std::span<const Check> DialogChecks();
[[nodiscard]] std::span<const Check> ConfigurationChecks();
[[nodiscard]] std::span<const Check> ManagementChecks();
[[nodiscard]] std::span<const Check> ListFileChecks();
[[nodiscard]] std::span<const Check> AccessorChecks();
[[nodiscard]] std::span<const Check> SignalChecks();

}  // namespace workbench::check
