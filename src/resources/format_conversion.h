#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace orvell::resources {

/// One conversion of a printf-style text, such as "%-10s" (C11, 7.21.6.1).
struct FormatConversion {
    /// Limit of widths and precisions, so that no text asks for more memory than it is worth.
    static constexpr std::uint32_t kMaximumWidth = 4096;

    char letter = 0;  ///< d, i, u, x, X, c or s; 0: none
    bool leftAligned = false;
    bool zeroPadded = false;
    bool plusSign = false;
    bool blankSign = false;
    bool alternative = false;
    bool isPlain = true;     ///< no flags but "-", no precision, all 32 bits
    std::uint8_t bits = 32;  ///< low bits of an integer that count: 8 after hh, 16 after h
    std::uint32_t width = 0;
    std::int32_t precision = -1;  ///< -1: none given
};

/// Reads the conversion at the start of `text`, which begins with its "%". Returns how many
/// characters it has, 0 when it is none of the known ones; `conversion` is undefined then.
[[nodiscard]] std::size_t ParseConversion(std::string_view text, FormatConversion& conversion);

}  // namespace orvell::resources
