#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// Texts cross the boundary in the system's ANSI code page, Windows works in UTF-16, and output
/// that leaves the program is UTF-8. A character that the target lacks becomes '?'.
[[nodiscard]] std::wstring WideFromAnsi(std::string_view text);
[[nodiscard]] std::wstring WideFromUtf8(std::string_view text);
[[nodiscard]] std::string AnsiFromWide(std::wstring_view text);
[[nodiscard]] std::string Utf8FromWide(std::wstring_view text);

/// False when a character of `text` has no place in the ANSI code page.
[[nodiscard]] bool FitsAnsi(std::wstring_view text);

}  // namespace workbench
