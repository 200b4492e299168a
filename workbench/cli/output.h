#pragma once

#include <string_view>

namespace workbench::cli {

// Texts are in the ANSI code page. A console gets them as they are, a file or pipe in UTF-8.

void Print(std::string_view text);

/// One line on the standard error, "workbench: " before it.
void PrintError(std::string_view line);

}  // namespace workbench::cli
