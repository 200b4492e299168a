#include "exhaustive/decimal_reference.h"

#include <algorithm>
#include <array>
#include <bit>
#include <compare>

#include "exhaustive/big_natural.h"
#include "exhaustive/wide_product.h"

namespace orvell::exhaustive {
namespace {

constexpr int kFractionBits = 52;
constexpr int kBias = 1023;
constexpr int kLowestExponent = -1074;  // of the last bit of subnormals
constexpr std::uint64_t kHiddenBit = std::uint64_t{1} << kFractionBits;

constexpr int kFloatFractionBits = 23;
constexpr int kFloatBias = 127;
constexpr int kFloatLowestExponent = -149;
constexpr std::uint32_t kFloatSign = std::uint32_t{1} << 31;
constexpr std::uint32_t kFloatInfinity = std::uint32_t{0xFF} << kFloatFractionBits;

constexpr auto kTens = [] {
    std::array<std::uint64_t, 18> tens = {1};
    for (std::size_t i = 1; i < tens.size(); ++i) {
        tens[i] = tens[i - 1] * 10;
    }
    return tens;
}();

/// `significand` * 2^`exponent`
struct Binary {
    std::uint64_t significand;
    int exponent;
};

Binary PartsOf(std::uint64_t doubleBits) {
    const auto biased = static_cast<int>(doubleBits >> kFractionBits & 0x7FF);
    const std::uint64_t fraction = doubleBits & (kHiddenBit - 1);
    if (biased == 0) {
        return {fraction, kLowestExponent};
    }
    return {fraction | kHiddenBit, biased - kBias - kFractionBits};
}

/// The largest n with 10^n <= 2^power, for powers within the range of doubles.
int DecimalMagnitude(int power) {
    constexpr std::int64_t kLog10Of2 = 1292913986;  // times 2^32
    return static_cast<int>(power * kLog10Of2 >> 32);
}

/// How the decimal number compares with the binary one.
std::strong_ordering CompareExactly(const Decimal& decimal, const Binary& binary) {
    BigNatural left = BigNatural::PowerOfTen(static_cast<unsigned>(std::max(decimal.exponent, 0)));
    BigNatural right =
        BigNatural::PowerOfTen(static_cast<unsigned>(std::max(-decimal.exponent, 0)));
    left.Multiply(decimal.digits);
    right.Multiply(binary.significand);
    if (binary.exponent >= 0) {
        right.ShiftLeft(static_cast<std::size_t>(binary.exponent));
    } else {
        left.ShiftLeft(static_cast<std::size_t>(-binary.exponent));
    }
    return left <=> right;
}

/// Whether the double is nearer to the next decimal than to this one, which lies below it.
bool IsNearerToNext(const Binary& number, const Decimal& below) {
    const Decimal doubled = {2 * below.digits + 1, below.exponent};
    const auto order = CompareExactly(doubled, {number.significand, number.exponent + 1});
    return order < 0 || (order == 0 && below.digits % 2 != 0);
}

/// Whether the decimal is nearer to the next double than to this one, which lies below it.
bool IsNearerToNext(const Decimal& number, const Binary& below) {
    const auto order = CompareExactly(number, {2 * below.significand + 1, below.exponent - 1});
    return order > 0 || (order == 0 && below.significand % 2 != 0);
}

/// The bits of significand * 2^exponent, which has as many bits as doubles of that size have.
std::uint64_t DoubleOf(const Binary& number) {
    if (number.significand < kHiddenBit) {
        return number.significand;
    }
    const auto biased = static_cast<std::uint64_t>(number.exponent + kBias + kFractionBits);
    // A significand that rounding has carried to 2^53 carries on into the exponent.
    return std::min((biased << kFractionBits) + (number.significand - kHiddenBit), kDoubleInfinity);
}

}  // namespace

Decimal NearestDecimal(std::uint64_t doubleBits, int digitCount, Effort effort) {
    const Binary number = PartsOf(doubleBits);
    const int unused = std::countl_zero(number.significand);
    const std::uint64_t significand = number.significand << unused;
    const int exponent = number.exponent - unused;
    const std::uint64_t end = kTens[static_cast<std::size_t>(digitCount)];

    Decimal result = {0, DecimalMagnitude(exponent + 63) - digitCount + 1};
    Wide product;
    unsigned shift;
    for (;; ++result.exponent) {
        const WidePower& power = PowerOfTen(-result.exponent);
        product = MultiplyHigh(significand, power.significand);
        shift = static_cast<unsigned>(-(exponent + power.exponent + 64));
        result.digits = product.high >> (shift - 64);
        if (result.digits < end) {
            break;
        }
    }
    const Rounding rounding =
        effort == Effort::Always ? Rounding::Undecided : RoundingOfShift(product, shift);
    const bool isUp =
        rounding == Rounding::Undecided ? IsNearerToNext(number, result) : rounding == Rounding::Up;
    result.digits += isUp ? 1 : 0;
    if (result.digits == end) {
        return {end / 10, result.exponent + 1};
    }
    return result;
}

std::uint64_t NearestDouble(const Decimal& decimal, Effort effort) {
    if (decimal.digits == 0) {
        return 0;
    }
    const int unused = std::countl_zero(decimal.digits);
    const WidePower& power = PowerOfTen(decimal.exponent);
    const Wide product = MultiplyHigh(decimal.digits << unused, power.significand);
    const int productExponent = power.exponent - unused + 64;
    const int highestBit = productExponent + 127 - (product.high >> 63 != 0 ? 0 : 1);
    if (highestBit > kBias) {
        return kDoubleInfinity;
    }
    Binary below = {0, std::max(highestBit - kFractionBits, kLowestExponent)};
    const auto shift = static_cast<unsigned>(below.exponent - productExponent);
    Rounding rounding = Rounding::Undecided;
    if (shift < 128) {
        below.significand = product.high >> (shift - 64);
        rounding = effort == Effort::Always ? rounding : RoundingOfShift(product, shift);
    }
    const bool isUp =
        rounding == Rounding::Undecided ? IsNearerToNext(decimal, below) : rounding == Rounding::Up;
    below.significand += isUp ? 1 : 0;
    return DoubleOf(below);
}

std::uint32_t NarrowToFloat(std::uint64_t doubleBits) {
    const std::uint32_t sign = (doubleBits & kDoubleSign) != 0 ? kFloatSign : 0;
    const Binary number = PartsOf(doubleBits & ~kDoubleSign);
    const int highestBit =
        number.exponent + static_cast<int>(std::bit_width(number.significand)) - 1;
    if (highestBit > kFloatBias) {
        return sign | kFloatInfinity;
    }
    const int lastBit = std::max(highestBit - kFloatFractionBits, kFloatLowestExponent);
    const int shift = lastBit - number.exponent;
    if (number.significand == 0 || shift > kFractionBits + 1) {
        return sign;  // less than half of the smallest single
    }
    const std::uint64_t rest = number.significand & ((std::uint64_t{1} << shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    auto bits = static_cast<std::uint32_t>(number.significand >> shift);
    bits += rest > half || (rest == half && bits % 2 != 0) ? 1 : 0;
    if (lastBit > kFloatLowestExponent) {
        // The hidden bit counts as the lowest of the exponent.
        bits += static_cast<std::uint32_t>(highestBit + kFloatBias - 1) << kFloatFractionBits;
    }
    return sign | bits;
}

std::uint64_t WidenToDouble(std::uint32_t floatBits) {
    const std::uint64_t sign = (floatBits & kFloatSign) != 0 ? kDoubleSign : 0;
    const std::uint32_t magnitude = floatBits & ~kFloatSign;
    const std::uint32_t biased = magnitude >> kFloatFractionBits;
    const std::uint64_t fraction = magnitude & ((std::uint32_t{1} << kFloatFractionBits) - 1);
    constexpr int kMoreBits = kFractionBits - kFloatFractionBits;
    if (magnitude >= kFloatInfinity) {
        return sign | kDoubleInfinity | fraction << kMoreBits;
    }
    if (biased != 0) {
        return sign | (std::uint64_t{biased + kBias - kFloatBias} << kFractionBits |
                       fraction << kMoreBits);
    }
    if (fraction == 0) {
        return sign;
    }
    const int highestBit = static_cast<int>(std::bit_width(fraction)) - 1;
    const auto exponent = static_cast<std::uint64_t>(highestBit + kFloatLowestExponent + kBias);
    const std::uint64_t withoutHighestBit = (fraction << (kFractionBits - highestBit)) - kHiddenBit;
    return sign | exponent << kFractionBits | withoutHighestBit;
}

}  // namespace orvell::exhaustive
