#pragma once

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <string_view>

namespace orvell::paramlist {

// Searches for characters in the text of files, 16 bytes at a time (SSE2, which every processor
// that runs the host has).

inline constexpr std::ptrdiff_t kBytesPerStep = 16;

[[nodiscard]] inline __m128i LoadSixteen(const char* position) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(position));
}

inline void StoreSixteen(char* position, __m128i block) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(position), block);
}

/// A bit for each of the 16 bytes, set where it is one of the characters.
template <char... characters>
[[nodiscard]] inline unsigned MatchSixteen(__m128i block) {
    return (
        static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(block, _mm_set1_epi8(characters)))) |
        ...);
}

/// The first of the characters in the text from `position` to `end`, `end` when there is none.
template <char... characters>
[[nodiscard]] inline const char* FindFirstOf(const char* position, const char* end) {
    for (; end - position >= kBytesPerStep; position += kBytesPerStep) {
        if (const unsigned matches = MatchSixteen<characters...>(LoadSixteen(position));
            matches != 0) {
            return position + std::countr_zero(matches);
        }
    }
    return std::find_if(position, end,
                        [](char character) { return ((character == characters) || ...); });
}

/// The first byte from `position` to `end` that is none of the characters, `end` when all are.
template <char... characters>
[[nodiscard]] inline const char* FindFirstNotOf(const char* position, const char* end) {
    constexpr unsigned kAll = 0xFFFF;
    for (; end - position >= kBytesPerStep; position += kBytesPerStep) {
        if (const unsigned others = MatchSixteen<characters...>(LoadSixteen(position)) ^ kAll;
            others != 0) {
            return position + std::countr_zero(others);
        }
    }
    return std::find_if(position, end,
                        [](char character) { return ((character != characters) && ...); });
}

/// 16 bytes made of the first and the last 8 of a text of 8 to 16 bytes, which may overlap.
[[nodiscard]] inline __m128i LoadBothEnds(std::string_view text) {
    const char* const lastEight = text.data() + text.size() - kBytesPerStep / 2;
    return _mm_unpacklo_epi64(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(text.data())),
                              _mm_loadl_epi64(reinterpret_cast<const __m128i*>(lastEight)));
}

/// True when the character is in the text.
template <char character>
[[nodiscard]] inline bool Contains(std::string_view text) {
    const std::size_t size = text.size();
    if (size < kBytesPerStep / 2) {
        return std::find(text.begin(), text.end(), character) != text.end();
    }
    if (size < kBytesPerStep) {
        return MatchSixteen<character>(LoadBothEnds(text)) != 0;
    }
    // The last step begins so that it ends with the text, wherever the one before has ended.
    const std::size_t lastStep = size - kBytesPerStep;
    for (std::size_t position = 0; position < lastStep; position += kBytesPerStep) {
        if (MatchSixteen<character>(LoadSixteen(text.data() + position)) != 0) {
            return true;
        }
    }
    return MatchSixteen<character>(LoadSixteen(text.data() + lastStep)) != 0;
}

/// Copies the text from `position` to `end` up to the first `character`, and tells how much of it
/// that is. `out` has room for the text's length and 15 bytes more.
template <char character>
[[nodiscard]] inline std::size_t CopyUntil(const char* position, const char* end, char* out) {
    const char* const start = position;
    for (; end - position >= kBytesPerStep; position += kBytesPerStep) {
        const __m128i block = LoadSixteen(position);
        StoreSixteen(out + (position - start), block);
        if (const unsigned matches = MatchSixteen<character>(block); matches != 0) {
            return static_cast<std::size_t>(position - start + std::countr_zero(matches));
        }
    }
    for (; position != end && *position != character; ++position) {
        out[position - start] = *position;
    }
    return static_cast<std::size_t>(position - start);
}

/// The 16 bytes with `to` in the place of every `from`.
template <char from, char to>
[[nodiscard]] inline __m128i ReplaceSixteen(__m128i block) {
    const __m128i marks = _mm_cmpeq_epi8(block, _mm_set1_epi8(from));
    return _mm_xor_si128(block, _mm_and_si128(marks, _mm_set1_epi8(from ^ to)));
}

/// Copies the text with `to` in the place of every `from` to `out`, which is no part of the text
/// and has room for it. Returns the end of the copy.
template <char from, char to>
inline char* CopyReplacing(std::string_view text, char* out) {
    const std::size_t size = text.size();
    if (size < kBytesPerStep / 2) {
        return std::replace_copy(text.begin(), text.end(), out, from, to);
    }
    if (size < kBytesPerStep) {
        const __m128i ends = ReplaceSixteen<from, to>(LoadBothEnds(text));
        char* const lastEight = out + size - kBytesPerStep / 2;
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out), ends);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(lastEight), _mm_unpackhi_epi64(ends, ends));
        return out + size;
    }
    const auto replaceAt = [text, out](std::size_t position) {
        StoreSixteen(out + position, ReplaceSixteen<from, to>(LoadSixteen(text.data() + position)));
    };
    const std::size_t lastStep = size - kBytesPerStep;
    for (std::size_t position = 0; position < lastStep; position += kBytesPerStep) {
        replaceAt(position);
    }
    replaceAt(lastStep);
    return out + size;
}

}  // namespace orvell::paramlist
