#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/boundary/list_model.h"
#include "fuzz/files/csv_file_reference.h"
#include "fuzz/files/plain_list.h"
#include "paramlist/list_file_reader.h"

namespace orvell::fuzz {

// The model's list in files, by the reference readers.

enum class FileForm { List, Csv };

[[nodiscard]] PlainList ModelEntries(ListModel& list);

/// Reads a list file into the model; false when there is no record in it.
[[nodiscard]] bool ReadIntoModel(ListModel& list, const std::string& bytes,
                                 paramlist::ListFileScope scope);

[[nodiscard]] PlainWarnings ReadCsvIntoModel(ListModel& list, const std::string& bytes);

/// What has been written must be these entries, but for what the form cannot carry.
void RequireWritten(const PlainList& entries, const std::string& bytes, FileForm form);

/// A line of the host's message page.
struct PageLine {
    std::int32_t page;
    std::string text;
    std::uint32_t color;
    std::int32_t emphasis;

    bool operator==(const PageLine&) const = default;
};
using PageLines = std::vector<PageLine>;

/// The lines that report an import.
[[nodiscard]] PageLines ReportOf(const std::string& path, const PlainWarnings& warnings,
                                 std::int32_t page);

}  // namespace orvell::fuzz
