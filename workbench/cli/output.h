#pragma once

#include <cstdint>
#include <string_view>

namespace workbench::cli {

// Texts are in the ANSI code page. A console gets them as they are, a file or pipe in UTF-8.

void Print(std::string_view text);

/// On a console in the colour (0x00BBGGRR) that comes nearest, bright when emphasised; else as
/// `Print`.
void PrintColored(std::string_view text, std::uint32_t color, bool emphasis);

/// One line on the standard error, "workbench: " before it.
void PrintError(std::string_view line);

/// True when a person may read the standard error while it is written.
[[nodiscard]] bool IsErrorConsole();

}  // namespace workbench::cli
