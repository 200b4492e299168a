#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "fuzz/values/text_taking.h"
#include "values/base_types.h"

namespace orvell::fuzz {

/// The date's text, its year with four digits.
[[nodiscard]] std::string DayText(std::chrono::sys_days day, values::DateFormatCode format);

/// The day that a date spells. It need not exist: months count from the first of their year, days
/// from the first of their month, and 0 counts as 1. None beyond the calendar of the C++ library.
[[nodiscard]] std::optional<std::chrono::sys_days> DayOf(const WrittenDate& date);

}  // namespace orvell::fuzz
