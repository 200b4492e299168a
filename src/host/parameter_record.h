#pragma once

#include <cstdint>
#include <string_view>

#include "memstruct/type_model.h"
#include "orvell/orvell.h"
#include "values/base_types.h"

namespace orvell::host {

/// The type of the memory area with this identifier; null for an unknown area or type.
[[nodiscard]] const memstruct::TypeDef* TypeOf(std::int32_t identifier);

/// Fewer elements than two are a single value.
[[nodiscard]] inline bool IsVector(std::uint32_t count) {
    constexpr std::uint32_t kShortestVector = 2;
    return count >= kShortestVector;
}

/// The elements of a value: 1 for a single one.
[[nodiscard]] inline std::uint32_t ElementCount(std::uint32_t count) {
    return IsVector(count) ? count : 1;
}

/// The record's value; empty without bytes.
[[nodiscard]] values::ValueBuffer ValueBytes(const ParameterRecord& record);

/// The number format in the low four bits of a record's last byte; `Default` for one beyond.
[[nodiscard]] values::DisplayFormat FormatOf(std::uint8_t formatByte);

}  // namespace orvell::host
