#pragma once

#include <cstdint>

namespace orvell::exhaustive {

/// 128 bits, as the 32-bit target has no such integer.
struct Wide {
    std::uint64_t high;
    std::uint64_t low;
};

/// 10^q = `significand` * 2^`exponent`, the significand being cut to 128 bits of which the highest
/// is set: the power itself lies less than one unit of the last bit above.
struct WidePower {
    Wide significand;
    int exponent;
};

inline constexpr int kLargestPower = 345;

/// The power 10^q for q between -`kLargestPower` and `kLargestPower`.
[[nodiscard]] const WidePower& PowerOfTen(int q);

/// `factor` * `significand` / 2^64, cut to 128 bits. If `significand` is cut itself, then the
/// product lies less than two units above.
[[nodiscard]] inline Wide MultiplyHigh(std::uint64_t factor, const Wide& significand) {
    const auto lowOf = [](std::uint64_t value) { return static_cast<std::uint32_t>(value); };
    const auto highOf = [](std::uint64_t value) { return static_cast<std::uint32_t>(value >> 32); };
    const auto product = [](std::uint32_t a, std::uint32_t b) { return std::uint64_t{a} * b; };
    const std::uint32_t f0 = lowOf(factor);
    const std::uint32_t f1 = highOf(factor);
    const std::uint32_t s0 = lowOf(significand.low);
    const std::uint32_t s1 = highOf(significand.low);
    const std::uint32_t s2 = lowOf(significand.high);
    const std::uint32_t s3 = highOf(significand.high);
    // Column by column: each sum of 64-bit products is taken apart before it can overflow.
    const std::uint64_t p00 = product(f0, s0);
    const std::uint64_t p01 = product(f0, s1);
    const std::uint64_t p10 = product(f1, s0);
    const std::uint64_t column1 = std::uint64_t{highOf(p00)} + lowOf(p01) + lowOf(p10);
    const std::uint64_t p02 = product(f0, s2);
    const std::uint64_t p11 = product(f1, s1);
    const std::uint64_t column2 =
        std::uint64_t{highOf(column1)} + highOf(p01) + highOf(p10) + lowOf(p02) + lowOf(p11);
    const std::uint64_t p03 = product(f0, s3);
    const std::uint64_t p12 = product(f1, s2);
    const std::uint64_t column3 =
        std::uint64_t{highOf(column2)} + highOf(p02) + highOf(p11) + lowOf(p03) + lowOf(p12);
    const std::uint64_t p13 = product(f1, s3);
    const std::uint64_t column4 =
        std::uint64_t{highOf(column3)} + highOf(p03) + highOf(p12) + lowOf(p13);
    const std::uint64_t column5 = std::uint64_t{highOf(column4)} + highOf(p13);
    return {column5 << 32 | lowOf(column4), column3 << 32 | lowOf(column2)};
}

/// Whether what is cut off by a right shift makes the quotient round up.
enum class Rounding { Down, Up, Undecided };

/// For a number in [`value`, `value` + 2) and a shift by 64 to 127 bits: how what is cut off
/// compares with one half. Undecided when the number's own uncertainty covers the half.
[[nodiscard]] inline Rounding RoundingOfShift(const Wide& value, unsigned bitCount) {
    const unsigned highBits = bitCount - 64;
    const std::uint64_t restHigh = value.high & ((std::uint64_t{1} << highBits) - 1);
    const std::uint64_t halfHigh = highBits == 0 ? 0 : std::uint64_t{1} << (highBits - 1);
    const std::uint64_t halfLow = highBits == 0 ? std::uint64_t{1} << 63 : 0;
    const std::uint64_t missingLow = halfLow - value.low;
    const std::uint64_t missingHigh = halfHigh - restHigh - (halfLow < value.low ? 1 : 0);
    if (static_cast<std::int64_t>(missingHigh) < 0) {
        return Rounding::Up;
    }
    return missingHigh == 0 && missingLow <= 1 ? Rounding::Undecided : Rounding::Down;
}

}  // namespace orvell::exhaustive
