#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace orvell::fuzz {

// Dates and clocks of CSV files, told by the shape of the whole text instead of by states, and by
// the calendar of the C++ library. None for what is rejected.

[[nodiscard]] std::optional<std::uint32_t> DateOfText(std::string_view text);
[[nodiscard]] std::optional<std::uint32_t> TimeOfDayOfText(std::string_view text);
[[nodiscard]] std::optional<std::uint32_t> DateAndTimeOfText(std::string_view text);

/// Every text is taken.
[[nodiscard]] double OleDateTimeOfText(std::string_view text);

}  // namespace orvell::fuzz
