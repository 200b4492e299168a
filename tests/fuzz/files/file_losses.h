#pragma once

#include <cstdint>
#include <string_view>

#include "fuzz/files/csv_file_reference.h"
#include "fuzz/files/plain_list.h"

namespace orvell::fuzz {

/// True when no name, comment, text or the project's name has one of these characters.
[[nodiscard]] bool HasNoneOf(const PlainList& list, std::string_view projectName,
                             std::string_view characters);

/// What a list file cannot carry, and what a CSV file cannot.
inline constexpr std::string_view kForeignToListFile = "\t\n\x1A";
inline constexpr std::string_view kForeignToCsvFile = "\n\x1A";

/// What a list file of these entries, which have nothing foreign, gives in an empty list: "What
/// does not come back" in docs/list-file.md.
[[nodiscard]] PlainList AfterListFile(const PlainList& list);

/// True when the list is written as the same bytes after having been written and read.
[[nodiscard]] bool IsListFileLasting(const PlainList& list);

struct CsvOutcome {
    PlainList list;
    PlainWarnings warnings;
};

/// What a CSV file of `list`, which has nothing foreign, makes of the list `before`, which has all
/// its numbers once: "What does not come back" in docs/csv-file.md.
[[nodiscard]] CsvOutcome AfterCsvFile(const PlainList& list, const PlainList& before);

/// True when the list is written as the same bytes after having been written and read.
[[nodiscard]] bool IsCsvFileLasting(const PlainList& list);

}  // namespace orvell::fuzz
