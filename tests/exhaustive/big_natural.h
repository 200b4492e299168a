#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace orvell::exhaustive {

/// A natural number of any size, for what must be exact and need not be fast.
class BigNatural {
  public:
    explicit BigNatural(std::uint64_t value);

    [[nodiscard]] static BigNatural PowerOfTen(unsigned exponent);

    void Multiply(std::uint64_t factor);
    void ShiftLeft(std::size_t bitCount);

    /// `smaller` may not be above this number.
    void Subtract(const BigNatural& smaller);

    [[nodiscard]] std::size_t BitLength() const;
    [[nodiscard]] bool HasBit(std::size_t position) const;
    [[nodiscard]] std::strong_ordering operator<=>(const BigNatural& other) const;

  private:
    void MultiplyLimb(std::uint32_t factor);
    void Add(const BigNatural& other);
    void DropLeadingZeros();

    std::vector<std::uint32_t> limbs_;  // the least first, no zeros at the end
};

}  // namespace orvell::exhaustive
