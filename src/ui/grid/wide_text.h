#pragma once

#include <string>
#include <string_view>

namespace orvell::ui {

/// From the ANSI code page to UTF-16. Empty when the system cannot convert.
[[nodiscard]] std::wstring ToWide(std::string_view text);

/// From UTF-16 to the ANSI code page; what it does not have becomes its replacement character.
[[nodiscard]] std::string ToAnsi(std::wstring_view text);

}  // namespace orvell::ui
