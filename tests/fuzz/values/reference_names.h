#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "values/base_types.h"

namespace orvell::fuzz {

// Names of an enumerated type by looking through its items, given in the order of their definition.
// Of items with one value only the first exists.

/// The name, or the number when it has none.
[[nodiscard]] std::string ReferenceName(const std::vector<values::EnumItem>& items,
                                        std::uint32_t value);

/// The value of the item of that name, of several the smallest; none: the text is a number.
[[nodiscard]] std::uint32_t ReadReferenceName(const std::vector<values::EnumItem>& items,
                                              const std::string& text);

/// The name of the item with the smallest value that has one, "0" when none has.
[[nodiscard]] std::string ReferenceDefaultName(const std::vector<values::EnumItem>& items);

}  // namespace orvell::fuzz
