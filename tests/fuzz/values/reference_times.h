#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "values/base_types.h"

namespace orvell::fuzz {

// Texts of counts by the calendar of the C++ library and by plain reading, without tables.

[[nodiscard]] std::string ReferenceDuration(std::uint32_t milliseconds);
[[nodiscard]] std::string ReferenceTime(std::uint32_t seconds);
[[nodiscard]] std::string ReferenceDate(std::uint32_t seconds, values::DateFormatCode format);

[[nodiscard]] std::uint32_t ReadReferenceDuration(std::string_view text);

/// What a text is: not told here, rejected, or the count that it spells.
struct ReferenceCount {
    bool isTold = true;
    bool isAccepted = false;
    std::uint32_t count = 0;
};

/// TIME
[[nodiscard]] ReferenceCount ReadReferenceTime(std::string_view text);
/// DATE
[[nodiscard]] ReferenceCount ReadReferenceDate(std::string_view text);
/// DATE+TIME
[[nodiscard]] ReferenceCount ReadReferenceDateTime(std::string_view text);

}  // namespace orvell::fuzz
