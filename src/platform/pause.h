#pragma once

#include <cstdint>

namespace orvell::platform {

/// Lets the calling thread rest for at least so many milliseconds.
void Pause(std::uint32_t milliseconds);

}  // namespace orvell::platform
