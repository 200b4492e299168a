#pragma once

#include <windows.h>

#include <string>

namespace workbench {

/// Folder of a loaded module's file in the ANSI code page, ending with a backslash; null means the
/// running program. Empty when the file's name cannot be read.
[[nodiscard]] std::string FolderOfModule(HMODULE module);

/// The module that holds this code.
[[nodiscard]] HMODULE OwnModule();

}  // namespace workbench
