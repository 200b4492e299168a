#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "check/bench.h"
#include "check/host_record.h"

namespace workbench::check {

/// (path, text) pairs of a leaf list.
using Leaves = std::vector<std::pair<std::string, std::string>>;

/// The text of slot 3, released; "(null)" for none.
[[nodiscard]] std::string TakeText(Bench& bench, ParameterRecord* record);

/// The leaves of slot 11, released; empty for none.
[[nodiscard]] Leaves TakeLeaves(Bench& bench, ParameterRecord* record);

/// A record of full size about the bytes.
[[nodiscard]] ParameterRecord ParameterOf(std::int32_t area, std::uint32_t count,
                                          std::span<std::uint8_t> bytes);

/// A text that the module has allocated.
[[nodiscard]] char* ModuleText(Bench& bench);

/// IDs that no project has.
[[nodiscard]] std::vector<std::int32_t> UnknownAreas(Bench& bench);

}  // namespace workbench::check
