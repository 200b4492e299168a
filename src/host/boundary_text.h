#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace orvell::host {

/// A host's text; an absent one is empty.
[[nodiscard]] inline std::string_view TextOrEmpty(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

/// A host's text; none when it is absent.
[[nodiscard]] inline std::optional<std::string_view> OptionalText(const char* text) {
    return text == nullptr ? std::nullopt : std::optional<std::string_view>(text);
}

/// Writes the text, cut to `size` - 1 bytes, and a closing NUL into a host's buffer of `size`
/// bytes; nothing when there is no buffer or its size is 0.
inline void CopyCut(std::string_view text, char* buffer, std::uint32_t size) {
    if (buffer != nullptr && size != 0) {
        buffer[text.copy(buffer, size - 1)] = '\0';
    }
}

}  // namespace orvell::host
