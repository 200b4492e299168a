#pragma once

#include <cstdint>
#include <string_view>

namespace orvell::paramlist {

/// A record of a list file.
struct ListFileRecord {
    std::string_view keyword;  ///< never empty
    std::uint32_t number = 0;  ///< modulo 2^32
    std::string_view name;     ///< never empty, as are value and comment
    std::string_view value;
    std::string_view comment;
};

/// Reads the record that begins at `position`, behind nothing but blanks of its line, if it lies
/// whole before `end` and in the very layout that the writer gives it, which nearly all have.
/// `record` gets the fields as they stand in the text. Returns the position behind the record; null
/// when there is none, though `ListFileMachine` may still find one: it knows all other layouts,
/// and finds the same fields in this one.
[[nodiscard]] const char* ScanWrittenRecord(const char* position, const char* end,
                                            ListFileRecord& record);

}  // namespace orvell::paramlist
