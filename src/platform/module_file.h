#pragma once

#include <string>

namespace orvell::platform {

/// Full path of the file that a loaded module comes from, in the ANSI code page.
/// `module`: its instance handle (HINSTANCE). Empty when the system does not know it.
[[nodiscard]] std::string ModuleFileName(void* module);

}  // namespace orvell::platform
