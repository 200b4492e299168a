#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orvell::values {

/// The milliseconds that pairs of number and unit spell ("1 h 30 min"), modulo 2^32. Units are d,
/// h, min, s and ms in either case; a pair with any other unit counts as 0, a number that ends the
/// text without a unit as milliseconds.
[[nodiscard]] std::uint32_t ReadDuration(std::string_view text);

/// Appends the duration in days, hours, minutes, seconds and milliseconds, as far as they are not
/// 0: "1 d 30 min"; "0 ms" for 0.
void AppendDuration(std::string& text, std::uint32_t milliseconds);

}  // namespace orvell::values
