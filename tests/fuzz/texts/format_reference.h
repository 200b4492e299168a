#pragma once

#include <span>
#include <string>
#include <string_view>

#include "resources/checked_format.h"

namespace orvell::fuzz {

/// `format` with the arguments filled in: each conversion that fits its argument by the run-time
/// library's own snprintf, all others by the rules of `resources::CheckedFormat`.
[[nodiscard]] std::string FormatByReference(std::string_view format,
                                            std::span<const resources::FormatArgument> arguments);

}  // namespace orvell::fuzz
