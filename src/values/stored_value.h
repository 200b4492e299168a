#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "values/base_types.h"

namespace orvell::values {

static_assert(std::endian::native == std::endian::little,
              "values are stored as the target stores them: little-endian");

/// The stored number; the buffer, which needs no alignment, must hold it.
template <typename Number>
[[nodiscard]] Number LoadNumber(ConstValueBuffer buffer) {
    static_assert(std::is_arithmetic_v<Number>);
    Number value;
    std::memcpy(&value, buffer.data(), sizeof value);
    return value;
}

/// Stores the number into the first bytes of the buffer, which must hold it.
template <typename Number>
void StoreNumber(ValueBuffer buffer, Number value) {
    static_assert(std::is_arithmetic_v<Number>);
    std::memcpy(buffer.data(), &value, sizeof value);
}

inline constexpr std::uint32_t kLargestIntegerWidth = 8;

/// The low `width` bytes of the value, zero-extended.
[[nodiscard]] constexpr std::uint64_t CutToWidth(std::uint64_t value, std::uint32_t width) {
    return width >= kLargestIntegerWidth ? value : value & ((std::uint64_t{1} << width * 8) - 1);
}

/// The low `width` bytes of the value, sign-extended.
[[nodiscard]] constexpr std::int64_t SignExtend(std::uint64_t value, std::uint32_t width) {
    if (width >= kLargestIntegerWidth || width == 0) {
        return static_cast<std::int64_t>(CutToWidth(value, width));
    }
    const std::uint64_t signBit = std::uint64_t{1} << (width * 8 - 1);
    return static_cast<std::int64_t>((CutToWidth(value, width) ^ signBit) - signBit);
}

/// The stored integer of `width` bytes (1 to 8), zero-extended; the buffer must hold it.
[[nodiscard]] inline std::uint64_t LoadInteger(ConstValueBuffer buffer, std::uint32_t width) {
    std::uint64_t value = 0;
    std::memcpy(&value, buffer.data(), width);
    return value;
}

/// Stores the low `width` bytes (1 to 8) of the value; the buffer must hold them.
inline void StoreInteger(ValueBuffer buffer, std::uint32_t width, std::uint64_t value) {
    std::memcpy(buffer.data(), &value, width);
}

}  // namespace orvell::values
