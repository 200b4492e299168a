#include "exhaustive/big_natural.h"

#include <algorithm>
#include <bit>

namespace orvell::exhaustive {
namespace {

constexpr std::size_t kLimbBits = 32;

}  // namespace

BigNatural::BigNatural(std::uint64_t value)
    : limbs_{static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(value >> kLimbBits)} {
    DropLeadingZeros();
}

BigNatural BigNatural::PowerOfTen(unsigned exponent) {
    BigNatural power(1);
    for (unsigned i = 0; i < exponent; ++i) {
        power.Multiply(10);
    }
    return power;
}

void BigNatural::Multiply(std::uint64_t factor) {
    const auto highFactor = static_cast<std::uint32_t>(factor >> kLimbBits);
    BigNatural high(0);
    if (highFactor != 0) {
        high = *this;
        high.MultiplyLimb(highFactor);
        high.ShiftLeft(kLimbBits);
    }
    MultiplyLimb(static_cast<std::uint32_t>(factor));
    Add(high);
}

void BigNatural::ShiftLeft(std::size_t bitCount) {
    MultiplyLimb(std::uint32_t{1} << bitCount % kLimbBits);
    if (!limbs_.empty()) {
        limbs_.insert(limbs_.begin(), bitCount / kLimbBits, 0);
    }
}

void BigNatural::Subtract(const BigNatural& smaller) {
    std::int64_t borrow = 0;
    for (std::size_t i = 0; i < limbs_.size(); ++i) {
        borrow += limbs_[i];
        borrow -= i < smaller.limbs_.size() ? smaller.limbs_[i] : 0;
        limbs_[i] = static_cast<std::uint32_t>(borrow);
        borrow >>= kLimbBits;
    }
    DropLeadingZeros();
}

std::size_t BigNatural::BitLength() const {
    if (limbs_.empty()) {
        return 0;
    }
    return limbs_.size() * kLimbBits - static_cast<std::size_t>(std::countl_zero(limbs_.back()));
}

bool BigNatural::HasBit(std::size_t position) const {
    const std::size_t index = position / kLimbBits;
    return index < limbs_.size() && (limbs_[index] >> position % kLimbBits & 1) != 0;
}

std::strong_ordering BigNatural::operator<=>(const BigNatural& other) const {
    if (limbs_.size() != other.limbs_.size()) {
        return limbs_.size() <=> other.limbs_.size();
    }
    for (std::size_t i = limbs_.size(); i-- > 0;) {
        if (limbs_[i] != other.limbs_[i]) {
            return limbs_[i] <=> other.limbs_[i];
        }
    }
    return std::strong_ordering::equal;
}

void BigNatural::MultiplyLimb(std::uint32_t factor) {
    std::uint64_t carry = 0;
    for (std::uint32_t& limb : limbs_) {
        carry += std::uint64_t{limb} * factor;
        limb = static_cast<std::uint32_t>(carry);
        carry >>= kLimbBits;
    }
    limbs_.push_back(static_cast<std::uint32_t>(carry));
    DropLeadingZeros();
}

void BigNatural::Add(const BigNatural& other) {
    std::uint64_t carry = 0;
    limbs_.resize(std::max(limbs_.size(), other.limbs_.size()) + 1);
    for (std::size_t i = 0; i < limbs_.size(); ++i) {
        carry += std::uint64_t{limbs_[i]} + (i < other.limbs_.size() ? other.limbs_[i] : 0);
        limbs_[i] = static_cast<std::uint32_t>(carry);
        carry >>= kLimbBits;
    }
    DropLeadingZeros();
}

void BigNatural::DropLeadingZeros() {
    while (!limbs_.empty() && limbs_.back() == 0) {
        limbs_.pop_back();
    }
}

}  // namespace orvell::exhaustive
