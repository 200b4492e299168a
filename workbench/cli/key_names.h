#pragma once

#include <optional>
#include <string_view>

#include "cli/dialog_script.h"

namespace workbench::cli {

/// The key named, such as "Down", "F2", "Ctrl+Home", "Alt+A"; nothing for an unknown name.
[[nodiscard]] std::optional<KeyStroke> ParseKeyStroke(std::string_view name);

}  // namespace workbench::cli
