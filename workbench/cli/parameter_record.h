#pragma once

#include "cli/host_module.h"

namespace workbench::cli {

/// The value as the module's slots take it, which read its bytes only.
[[nodiscard]] inline ParameterRecord Parameter(const Value& value) {
    ParameterRecord record{};
    record.size = sizeof record;
    record.identifier = static_cast<std::int32_t>(value.area);
    record.count = value.count;
    record.length = static_cast<std::uint32_t>(value.bytes.size());
    record.bytes = const_cast<std::uint8_t*>(value.bytes.data());
    record.attribute = value.bare ? 1 : 0;
    record.format = value.format;
    return record;
}

}  // namespace workbench::cli
