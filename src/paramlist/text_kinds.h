#pragma once

#include <cstdint>
#include <string>

#include "paramlist/parameter_kind.h"
#include "paramlist/parameter_list.h"
#include "resources/string_table.h"

namespace orvell::paramlist {

/// The text of the parameter kind at place `index` of the string table's order, where `first` is
/// that of the first kind. Empty when there is none; valid until the table gets another source.
[[nodiscard]] const std::string& KindText(const resources::StringTable& strings,
                                          resources::StringId first, std::uint32_t index);

/// The kind at place `index` of the string table's order, null when the list has none there.
[[nodiscard]] const ParameterKind* KindAt(const ParameterList& list,
                                          const resources::StringTable& strings,
                                          std::uint32_t index);

}  // namespace orvell::paramlist
