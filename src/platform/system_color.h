#pragma once

#include <cstdint>

namespace orvell::platform {

/// The user's colour for text in windows, as 0x00BBGGRR.
[[nodiscard]] std::uint32_t WindowTextColor();

/// The user's colour for the background of windows, as 0x00BBGGRR.
[[nodiscard]] std::uint32_t WindowColor();

}  // namespace orvell::platform
