#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace workbench::cli {

/// Reads a value from the words of a command line: hexadecimal bytes, or one "@FILE". False, with
/// `error` saying what to do, when a byte is not spelled with two digits or the file cannot be
/// read.
[[nodiscard]] bool ReadValue(std::span<const std::string> words, std::vector<std::uint8_t>& bytes,
                             std::string& error);

/// Reads words of hexadecimal bytes. False, with `error` saying what to do, at the first that is
/// none.
[[nodiscard]] bool ReadHexValue(std::span<const std::string> words,
                                std::vector<std::uint8_t>& bytes, std::string& error);

/// The name of the file that the words of a value name, nothing when they are bytes.
[[nodiscard]] std::optional<std::string> ValueFile(std::span<const std::string> words);

/// Makes or replaces a value file. False, with `error` set, when it cannot be written.
[[nodiscard]] bool WriteValueFile(const std::string& path, std::span<const std::uint8_t> bytes,
                                  std::string& error);

/// Bytes of two upper-case digits, a blank between them.
[[nodiscard]] std::string HexText(std::span<const std::uint8_t> bytes);

}  // namespace workbench::cli
