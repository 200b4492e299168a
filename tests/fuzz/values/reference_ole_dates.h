#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "values/base_types.h"

namespace orvell::fuzz {

// OLE automation dates by the calendar of the C++ library and by plain reading: days since 30
// December 1899, limited to the years 100 to 9999.

/// None where rounding to milliseconds is too close to call.
[[nodiscard]] std::optional<std::string> ReferenceOleDateTime(double serial,
                                                              values::DateFormatCode format);

/// [date] [H:M[:S[,ms]]]; none where the numbers are too large to tell.
[[nodiscard]] std::optional<double> ReadReferenceOleDateTime(std::string_view text);

}  // namespace orvell::fuzz
