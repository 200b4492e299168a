#include "exhaustive/wide_product.h"

#include <array>
#include <cstddef>

#include "exhaustive/big_natural.h"

namespace orvell::exhaustive {
namespace {

constexpr std::size_t kWideBits = 128;

void AppendBit(Wide& value, bool bit) {
    value.high = value.high << 1 | value.low >> 63;
    value.low = value.low << 1 | (bit ? 1 : 0);
}

WidePower CutPower(const BigNatural& power) {
    const std::size_t length = power.BitLength();
    WidePower cut = {{0, 0}, static_cast<int>(length) - static_cast<int>(kWideBits)};
    for (std::size_t i = 1; i <= kWideBits; ++i) {
        AppendBit(cut.significand, i <= length && power.HasBit(length - i));
    }
    return cut;
}

/// One over the power, which must be above 1: long division of a power of two.
WidePower CutReciprocal(const BigNatural& power) {
    const std::size_t length = power.BitLength();
    BigNatural rest(1);
    rest.ShiftLeft(length - 1);
    WidePower cut = {{0, 0}, -static_cast<int>(length - 1 + kWideBits)};
    for (std::size_t i = 0; i < kWideBits; ++i) {
        rest.ShiftLeft(1);
        const bool bit = rest >= power;
        AppendBit(cut.significand, bit);
        if (bit) {
            rest.Subtract(power);
        }
    }
    return cut;
}

using PowerTable = std::array<WidePower, 2 * kLargestPower + 1>;

PowerTable MakeTable() {
    PowerTable table;
    BigNatural power(1);
    table[kLargestPower] = CutPower(power);
    for (std::size_t q = 1; q <= kLargestPower; ++q) {
        power.Multiply(10);
        table[kLargestPower + q] = CutPower(power);
        table[kLargestPower - q] = CutReciprocal(power);
    }
    return table;
}

const PowerTable kPowers = MakeTable();

}  // namespace

const WidePower& PowerOfTen(int q) {
    return kPowers[static_cast<std::size_t>(q + kLargestPower)];
}

}  // namespace orvell::exhaustive
