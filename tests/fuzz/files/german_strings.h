#pragma once

#include "resources/string_table.h"

namespace orvell::fuzz {

/// How the texts tell CSV files to write dates.
enum class DateOrder { DayFirst, MonthFirst };

/// The German texts, loaded once for all inputs.
[[nodiscard]] const resources::StringTable& GermanStrings(DateOrder order = DateOrder::DayFirst);

}  // namespace orvell::fuzz
