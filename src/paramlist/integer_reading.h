#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>

#include "paramlist/strict_number.h"

namespace orvell::paramlist {

/// The integer part of a number. One that 64 bits do not hold, or that is none, counts as -2^63, as
/// the processor converts it (IA-32, CVTTSD2SI): cut to 32 bits or less it is 0.
[[nodiscard]] inline std::int64_t TruncateToInteger(double number) {
    constexpr double kTwoToThe63 = 9223372036854775808.0;
    const bool isHeld = number >= -kTwoToThe63 && number < kTwoToThe63;
    return isHeld ? static_cast<std::int64_t>(number) : std::numeric_limits<std::int64_t>::min();
}

/// The integer that a CSV text spells, none unless `Integer` holds it.
template <typename Integer>
[[nodiscard]] std::optional<Integer> ReadIntegerWithin(std::string_view text) {
    const std::optional<StrictInteger> integer = ReadStrictInteger(text);
    if (!integer || !integer->isExact || !std::in_range<Integer>(integer->value)) {
        return std::nullopt;
    }
    return static_cast<Integer>(integer->value);
}

}  // namespace orvell::paramlist
