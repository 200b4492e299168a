#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cstddef>

namespace orvell::paramlist {

// Searches for characters in the text of files, 16 bytes at a time (SSE2, which every processor
// that runs the host has).

/// A bit for each of the 16 bytes from `position` on, set where it is one of the characters.
template <char... characters>
[[nodiscard]] inline unsigned MatchSixteen(const char* position) {
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(position));
    return (
        static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, _mm_set1_epi8(characters)))) |
        ...);
}

/// The first of the characters in the text from `position` to `end`, `end` when there is none.
template <char... characters>
[[nodiscard]] inline const char* FindFirstOf(const char* position, const char* end) {
    constexpr std::ptrdiff_t kStep = 16;
    for (; end - position >= kStep; position += kStep) {
        if (const unsigned matches = MatchSixteen<characters...>(position); matches != 0) {
            return position + std::countr_zero(matches);
        }
    }
    return std::find_if(position, end,
                        [](char character) { return ((character == characters) || ...); });
}

/// The first byte from `position` to `end` that is none of the characters, `end` when all are.
template <char... characters>
[[nodiscard]] inline const char* FindFirstNotOf(const char* position, const char* end) {
    constexpr std::ptrdiff_t kStep = 16;
    constexpr unsigned kAll = 0xFFFF;
    for (; end - position >= kStep; position += kStep) {
        if (const unsigned others = MatchSixteen<characters...>(position) ^ kAll; others != 0) {
            return position + std::countr_zero(others);
        }
    }
    return std::find_if(position, end,
                        [](char character) { return ((character != characters) && ...); });
}

}  // namespace orvell::paramlist
