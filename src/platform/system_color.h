#pragma once

#include <cstdint>

namespace orvell::platform {

/// The user's colour for text in windows, as 0x00BBGGRR.
[[nodiscard]] std::uint32_t WindowTextColor();

}  // namespace orvell::platform
