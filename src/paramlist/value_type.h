#pragma once

#include <cstddef>
#include <cstdint>

namespace orvell::paramlist {

/// How the value of a parameter is stored. All numbers are in the machine's byte order.
enum class ValueTypeCode : std::uint32_t {
    None = 0,          ///< no value type: such a kind has no handler
    Bit = 1,           ///< 0 or 1 in one byte
    Word = 2,          ///< signed, 2 bytes
    Long = 3,          ///< signed, 4 bytes
    Float = 4,         ///< double, 8 bytes
    Text = 5,          ///< the characters and a closing NUL
    Date = 6,          ///< seconds since 1 January 1970, unsigned, 4 bytes
    Time = 7,          ///< a duration, unsigned, 4 bytes
    TimeOfDay = 8,     ///< seconds since midnight, unsigned, 4 bytes
    DateAndTime = 9,   ///< seconds since 1 January 1970, unsigned, 4 bytes
    Byte = 10,         ///< unsigned, 1 byte
    Integer64 = 11,    ///< signed, 8 bytes
    OleDateTime = 12,  ///< OLE automation date: double, 8 bytes
};

inline constexpr std::uint32_t kValueTypeCount = 12;

/// Kinds of parameters that the string table names, from `StringId::KeywordE` on.
inline constexpr std::uint32_t kParameterKindCount = 15;

/// The value type of the kind at this place of the string table's order; `None` behind the last.
[[nodiscard]] ValueTypeCode ValueTypeOfKind(std::size_t index);

}  // namespace orvell::paramlist
