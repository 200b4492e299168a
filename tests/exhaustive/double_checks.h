#pragma once

#include <string>
#include <vector>

#include "exhaustive/check.h"

namespace orvell::exhaustive {

inline constexpr std::uint64_t kRandomDoubleCount = 1000000000;
inline constexpr std::uint64_t kReferenceCount = 4000000;

/// Numbers from a fixed sequence: each with 15 digits as DOUBLE and with 16 in a CSV field, and
/// back. Every other number is any 64 bits, the rest have 1 to 17 digits and any decimal magnitude.
void CheckRandomDoubles(const values::ValueConverterSet& converters, Range values,
                        Differences& differences);

/// A text and the bits of the double that it spells.
struct KnownDecimal {
    std::uint64_t bits;
    std::string text;
};

/// Reads lines of 16 hexadecimal digits, a blank and a text; none when there is no such file.
[[nodiscard]] std::vector<KnownDecimal> LoadKnownDecimals(const char* path);

/// Known decimals: each read as DOUBLE, as FLOAT, from a list and from a CSV field, and its value
/// printed as in `CheckRandomDoubles`.
void CheckKnownDecimals(const values::ValueConverterSet& converters,
                        const std::vector<KnownDecimal>& decimals, Range values,
                        Differences& differences);

/// The reference itself against the C library, which prints and reads exactly too as long as
/// nothing is set in its environment.
void CheckReference(Range values, Differences& differences);

}  // namespace orvell::exhaustive
