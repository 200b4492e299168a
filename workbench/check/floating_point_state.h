#pragma once

#include <xmmintrin.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace workbench::check {

/// What a called function must leave as it was: precision and rounding of both floating-point
/// units, and an empty register stack.
struct FloatingPointState {
    std::uint16_t control = 0;
    std::uint16_t tags = 0;
    std::uint32_t vectorControl = 0;

    bool operator==(const FloatingPointState&) const = default;
};

[[nodiscard]] inline FloatingPointState ReadFloatingPointState() {
    constexpr std::uint32_t kControlBits = ~0x3FU;  // below them the flags of past operations
    std::array<std::uint16_t, 14> environment{};
    // Storing masks all exceptions; loading unmasks what was unmasked.
    __asm__ volatile("fnstenv %0\n\tfldenv %0" : "+m"(environment));
    return {environment[0], environment[4], _mm_getcsr() & kControlBits};
}

/// Empties the register stack and sets both units as the system starts them.
inline void ResetFloatingPoint() {
    constexpr std::uint32_t kSystemControl = 0x1F80;
    __asm__ volatile("fninit");
    _mm_setcsr(kSystemControl);
}

}  // namespace workbench::check
