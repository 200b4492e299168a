#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace workbench::xmlaccess {

/// True for a name that an element or attribute may have (XML 1.0, production 5; all characters
/// beyond ASCII count as letters). Not every MSXML checks this before it writes a name.
[[nodiscard]] bool IsXmlName(std::wstring_view name);

/// True when every character may stand in an XML document (XML 1.0, production 2).
[[nodiscard]] bool IsXmlText(std::wstring_view text);

/// An unsigned 32-bit decimal number of digits only, with blanks around it allowed.
[[nodiscard]] std::optional<std::uint32_t> ParseUnsigned(std::wstring_view text);

}  // namespace workbench::xmlaccess
