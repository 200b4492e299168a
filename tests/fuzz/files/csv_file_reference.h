#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/files/reference_list.h"

namespace orvell::fuzz {

/// A warning of an import: its message, line and, if it names something, that in brackets.
using PlainWarnings = std::vector<std::string>;

[[nodiscard]] std::string PlainWarning(std::uint32_t message, std::uint32_t line);
[[nodiscard]] std::string PlainWarning(std::uint32_t message, std::uint32_t line,
                                       std::string_view argument);

/// Ends the program when the warnings differ, after printing the first difference.
void RequireEqual(const PlainWarnings& found, const PlainWarnings& expected, const char* what);

/// Reads a CSV file byte by byte, as docs/csv-file.md describes it.
[[nodiscard]] PlainWarnings ReadCsvFileByReference(ReferenceList& list, std::string_view bytes);

}  // namespace orvell::fuzz
