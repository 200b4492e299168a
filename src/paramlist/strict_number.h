#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace orvell::paramlist {

// Numbers of CSV files. These come back from a spreadsheet, and a 0 in place of what could not be
// read would reach a machine: a text must be a number from its first character to its last.

/// `text` without the blanks and tabs around it.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

struct StrictInteger {
    std::int64_t value;  ///< the nearest one that 64 bits hold
    bool isExact;        ///< 64 bits hold the number
};

/// An integer in decimal digits; or a number with a decimal comma or an exponent, which counts as
/// the integer part of its print with one decimal ("2,96" is 3, "2,94" is 2). None for other texts.
[[nodiscard]] std::optional<StrictInteger> ReadStrictInteger(std::string_view text);

/// A finite decimal number with "," or "." before its fraction and perhaps an exponent. None for
/// other texts.
[[nodiscard]] std::optional<double> ReadStrictDouble(std::string_view text);

}  // namespace orvell::paramlist
