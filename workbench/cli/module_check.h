#pragma once

#include <span>
#include <string>

#include "cli/exit_code.h"

namespace workbench::cli {

/// True for the words of "check [OPTION...] FILE.DLL", which checks a build of the module and no
/// value.
[[nodiscard]] bool IsModuleCheck(std::span<const std::string> words);

/// Hands the words behind the first to the checker beside this program, which prints what it
/// finds. It is a process of its own, since the builds that it loads may crash.
/// `NotLoaded`, which has been reported, when it cannot be started; else the checker's exit code,
/// whose numbers mean the same.
[[nodiscard]] ExitCode RunModuleCheck(std::span<const std::string> words);

}  // namespace workbench::cli
