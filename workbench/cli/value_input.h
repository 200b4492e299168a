#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace workbench::cli {

/// Reads a value from the words of a command line: hexadecimal bytes, or one "@FILE". False, with
/// `error` saying what to do, when a byte is not spelled with two digits or the file cannot be
/// read.
[[nodiscard]] bool ReadValue(std::span<const std::string> words, std::vector<std::uint8_t>& bytes,
                             std::string& error);

}  // namespace workbench::cli
