#pragma once

#include <string>

#include "cli/command_line.h"

namespace workbench::cli {

/// Help for one command, or for the whole program.
[[nodiscard]] std::string Usage(Command command);

}  // namespace workbench::cli
