#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvell::values {

// Integers as texts, whatever the locale. Reading never fails: a text that spells no number gives
// 0, and whatever follows a number is ignored.

/// The decimal integer at the start of `text`, modulo 2^64. White space and one sign may precede
/// the digits; a minus gives the two's complement.
[[nodiscard]] std::uint64_t ReadDecimal64(std::string_view text);

/// As `ReadDecimal64`, modulo 2^32.
[[nodiscard]] std::uint32_t ReadDecimal32(std::string_view text);

/// The hexadecimal integer at the start of `text`, modulo 2^64: blanks and tabs, "0x" or "0X" if
/// wanted, digits of either case; no sign.
[[nodiscard]] std::uint64_t ReadHexadecimal(std::string_view text);

/// The integer that a text from a list or table spells, modulo 2^64. With a "," or an "e" or "E" in
/// it, the text is a decimal number with "," or "." before the fraction; it is printed with one
/// decimal and the integer part of that print counts, so that "2,96" gives 3 and "2,94" gives 2.
/// Any other text is read by `ReadDecimal64`.
[[nodiscard]] std::uint64_t ReadDecimalOrDouble(std::string_view text);

void AppendSigned(std::string& text, std::int64_t value);

void AppendUnsigned(std::string& text, std::uint64_t value);

/// The most decimal digits that 32 bits have.
inline constexpr std::size_t kMaximumDigits32 = 10;

/// Writes `value` in decimal with leading zeros up to `minimumDigits`. There must be room for these
/// and for `kMaximumDigits32`. Returns the end of what is written.
char* WriteZeroPadded(char* out, std::uint32_t value, std::size_t minimumDigits);

/// Appends the value in upper-case hexadecimal digits followed by "h", without leading zeros.
/// `width` is that of the value in bytes; nothing is appended for a width outside 1 to 8.
void AppendHexadecimal(std::string& text, std::uint64_t value, std::uint32_t width);

}  // namespace orvell::values
