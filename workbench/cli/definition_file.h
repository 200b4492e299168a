#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace workbench::cli {

struct Area {
    std::uint32_t id;
    std::string typeName;
};

/// What a host reads from a definition file for itself: the areas in ascending order of their IDs,
/// the first of two equal IDs, and how many types there are.
struct Definitions {
    std::vector<Area> areas;
    std::size_t typeCount = 0;
};

/// Reads a definition file through the XML access library. False, with `error` set, when the
/// library or the file cannot be read.
[[nodiscard]] bool ReadDefinitions(const std::string& path, Definitions& definitions,
                                   std::string& error);

}  // namespace workbench::cli
