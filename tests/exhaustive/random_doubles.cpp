#include "exhaustive/random_doubles.h"

#include "exhaustive/decimal_reference.h"

namespace orvell::exhaustive {
namespace {

constexpr std::uint64_t kSeed = 20201224;

/// SplitMix64 (Steele, Lea, Flood 2014): any number of the sequence without those before it.
std::uint64_t RandomBits(std::uint64_t number) {
    std::uint64_t bits = kSeed + (number + 1) * 0x9E3779B97F4A7C15;
    bits = (bits ^ bits >> 30) * 0xBF58476D1CE4E5B9;
    bits = (bits ^ bits >> 27) * 0x94D049BB133111EB;
    return bits ^ bits >> 31;
}

/// A number from 0 to `end` - 1, made of 32 random bits.
std::uint32_t Below(std::uint32_t end, std::uint64_t bits) {
    return static_cast<std::uint32_t>((bits & 0xFFFFFFFF) * end >> 32);
}

}  // namespace

std::uint64_t RandomDouble(std::uint64_t number) {
    const std::uint64_t bits = RandomBits(number);
    if (number % 2 == 0) {
        return bits;
    }
    constexpr std::uint32_t kMostDigits = 17;
    constexpr int kLowestMagnitude = -324;
    constexpr std::uint32_t kMagnitudeCount = 308 + 324 + 1;
    const std::uint32_t digitCount = 1 + Below(kMostDigits, bits);
    const int magnitude = kLowestMagnitude + static_cast<int>(Below(kMagnitudeCount, bits >> 32));
    std::uint64_t end = 1;
    for (std::uint32_t i = 0; i < digitCount; ++i) {
        end *= 10;
    }
    const std::uint64_t moreBits = RandomBits(~number);
    const Decimal decimal = {moreBits / 2 % end, magnitude - static_cast<int>(digitCount) + 1};
    return NearestDouble(decimal) | (moreBits % 2 != 0 ? kDoubleSign : 0);
}

}  // namespace orvell::exhaustive
