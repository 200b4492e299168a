#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvell::values {

// Doubles as texts, whatever the locale and the precision that is set for the x87 unit.

/// What `ScanDouble` found: the value and how many characters spell it, leading white space
/// included. A length of 0 means that no number is there.
struct DoubleScan {
    double value;
    std::size_t length;
};

/// The decimal number at the start of `text`, correctly rounded: white space, a sign, digits with a
/// decimal point, an exponent with e or E. Neither hexadecimal numbers nor the words for infinity
/// and NaN are read. Too large a number gives infinity, too small a one 0.
[[nodiscard]] DoubleScan ScanDouble(std::string_view text);

/// The value that `ScanDouble` finds.
[[nodiscard]] double ReadDouble(std::string_view text);

/// Appends the value as the conversion "%.<significantDigits>g" prints it (C11 7.21.6.1), "." being
/// the decimal point; "inf", "-inf" or "nan" for what is not a number.
void AppendGeneral(std::string& text, double value, int significantDigits);

/// Appends the value as the conversion "%.<decimals>f" prints it, exactly rounded; up to 3
/// decimals. What is not a number is spelled as by `AppendGeneral`.
void AppendFixed(std::string& text, double value, int decimals);

}  // namespace orvell::values
