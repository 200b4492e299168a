#pragma once

#include <cstdint>

namespace orvell::exhaustive {

/// Bits of the double with this number in a fixed sequence. Those of even numbers are any 64 bits;
/// the others are the doubles nearest to decimals of 1 to 17 digits, their magnitudes and signs
/// being equally frequent.
[[nodiscard]] std::uint64_t RandomDouble(std::uint64_t number);

}  // namespace orvell::exhaustive
