#pragma once

#include <cstdint>

namespace orvell::exhaustive {

// Floating-point numbers in decimal and back, exactly. All of it is integer arithmetic, which
// neither a locale nor the precision of the x87 unit can touch: it may run beside the code that is
// checked. Wide products with known error decide nearly all numbers; the rest is computed with as
// many digits as it takes.

/// `digits` * 10^`exponent`
struct Decimal {
    std::uint64_t digits;
    int exponent;

    bool operator==(const Decimal&) const = default;
};

/// Bits of IEEE 754 doubles.
inline constexpr std::uint64_t kDoubleSign = std::uint64_t{1} << 63;
inline constexpr std::uint64_t kDoubleInfinity = std::uint64_t{0x7FF} << 52;

/// Whether numbers near a tie only, or all of them, are computed with as many digits as it takes.
enum class Effort { WhereNeeded, Always };

/// The decimal number of so many digits (up to 17) that is nearest to a finite double other than 0,
/// of two the one with the even last digit. The sign is left out.
[[nodiscard]] Decimal NearestDecimal(std::uint64_t doubleBits, int digitCount,
                                     Effort effort = Effort::WhereNeeded);

/// Bits of the double nearest to the number, of two the one with the even last bit. The digits are
/// below 10^18, the exponent is within the powers that the table holds.
[[nodiscard]] std::uint64_t NearestDouble(const Decimal& decimal,
                                          Effort effort = Effort::WhereNeeded);

/// Bits of the single with the same value as the double, or the nearest to it.
[[nodiscard]] std::uint32_t NarrowToFloat(std::uint64_t doubleBits);

/// Bits of the double with the same value as the single.
[[nodiscard]] std::uint64_t WidenToDouble(std::uint32_t floatBits);

}  // namespace orvell::exhaustive
