#pragma once

#include <string>
#include <string_view>

namespace orvell::platform {

/// `text` in upper case by the rules of the ANSI code page: "ä" becomes "Ä", "ß" stays.
[[nodiscard]] std::string ToUpperAnsi(std::string_view text);

}  // namespace orvell::platform
