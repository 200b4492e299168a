#pragma once

#include "resources/string_table.h"

namespace orvell::fuzz {

/// The German texts, loaded once for all inputs.
[[nodiscard]] const resources::StringTable& GermanStrings();

}  // namespace orvell::fuzz
