#pragma once

#include <span>
#include <string>

#include "cli/host_module.h"

namespace workbench::cli {

/// A leaf's path as the program shows it: that of a value without elements is empty.
[[nodiscard]] std::string ShownPath(const std::string& path);

/// A line for each leaf: its path and its text.
[[nodiscard]] std::string LeafTable(std::span<const Leaf> leaves);

}  // namespace workbench::cli
