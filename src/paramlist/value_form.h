#pragma once

#include <cstdint>
#include <span>

#include "paramlist/value_type_handler.h"

namespace orvell::paramlist {

/// How a value lies in a caller's buffer, in the machine's byte order; the buffer need not be
/// aligned. A handler takes and gives only the forms that suit its value type.
enum class ValueForm : std::uint32_t {
    Truth = 1,       ///< 1 byte, given as 255 or 0
    Word = 2,        ///< 2 bytes
    Long = 3,        ///< signed, 4 bytes; given as a double's truncated low bytes
    Float = 4,       ///< 4 bytes
    Text = 5,        ///< up to a NUL or the buffer's end, at least 1 byte
    Dword = 6,       ///< unsigned, 4 bytes
    Byte = 7,        ///< 1 byte
    Qword = 8,       ///< 8 bytes
    Double = 9,      ///< 8 bytes
    LongDouble = 10  ///< the same as `Double`
};

/// Bytes that a buffer must have at least; 0 for a number that is no form.
[[nodiscard]] std::uint32_t MinimumLength(ValueForm form);

/// Gives the value in the form. False when the handler cannot: the form's bytes are zero then. The
/// buffer must have the form's minimum length.
bool GetInForm(ValueForm form, const ValueTypeHandler& handler, const ParameterValue& value,
               std::span<std::uint8_t> buffer);

/// Sets the value from the form. False when the handler cannot. The buffer must have the form's
/// minimum length.
bool SetFromForm(ValueForm form, const ValueTypeHandler& handler, ParameterValue& value,
                 std::span<const std::uint8_t> buffer);

}  // namespace orvell::paramlist
