#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace workbench::cli {

/// Where a value of a base type lies in the simulated target system.
struct TargetAddress {
    std::uint32_t area;
    std::uint32_t element;  ///< of the vector, from 0
    std::uint32_t offset;   ///< bytes from the start of the element

    auto operator<=>(const TargetAddress&) const = default;
};

/// All values that the target system holds, as it stores them; texts without a closing NUL.
using TargetTable = std::map<TargetAddress, std::vector<std::uint8_t>>;

/// Reads a table from a text file with a line for each value: area, element and offset in decimal,
/// then the bytes in hexadecimal; "#" begins a comment. No file: an empty table. False, with
/// `error` saying what to do, when a line is none.
[[nodiscard]] bool ReadTargetTable(const std::string& path, TargetTable& table, std::string& error);

/// Writes such a file; comments of the old one are lost. False, with `error` set, when it cannot be
/// written.
[[nodiscard]] bool WriteTargetTable(const std::string& path, const TargetTable& table,
                                    std::string& error);

}  // namespace workbench::cli
