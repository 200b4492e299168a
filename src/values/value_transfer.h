#pragma once

#include <cstdint>

#include "orvell/orvell.h"
#include "values/base_types.h"

namespace orvell::values {

/// The width by which the host's setters and getters are told apart.
enum class HostEntry { Byte, Word, Long, Qword, Float, Double, Text };

/// The kinds that `FillRecord::Put` is told.
enum class ParameterKind : std::uint32_t {
    EnumeratedByte = 1,
    Word = 2,
    Long = 3,
    Float = 4,
    Text = 5,
    Time = 6,
    IntegerByte = 7,
    Qword = 8,
    Double = 9,
    OleDate = 10,
};

/// How the host's functions take the values of a type.
struct HostForm {
    HostEntry entry;
    ParameterKind kind;
    bool isSigned = false;  ///< bytes and words are sign-extended to the word that carries them
};

/// The form of an integer of 1, 2, 4 or 8 bytes; `byteKind` is the kind of one byte.
[[nodiscard]] HostForm HostFormOfInteger(std::uint32_t width, ParameterKind byteKind,
                                         bool isSigned);

/// Hands `value`, which is exactly one stored value, to the setter of its width. A text reaches the
/// host up to its first NUL, at most one byte less than the value is wide. False when the host has
/// no such setter or it fails.
[[nodiscard]] bool PutValue(const HostForm& form, std::uint32_t first, std::uint32_t second,
                            ConstValueBuffer value, const OnlineSetters& setters);

/// Fetches one value through the getter of its width; a text is NUL-padded to the width of `value`.
/// False when the host has no such getter or it fails; `value` is then unchanged.
[[nodiscard]] bool GetValue(HostEntry entry, std::uint32_t first, std::uint32_t second,
                            ValueBuffer value, const OnlineGetters& getters);

}  // namespace orvell::values
