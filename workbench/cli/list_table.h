#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench::cli {

/// A line of the parameter list, as texts.
struct ListLine {
    std::string address;
    std::string name;
    std::string value;  ///< empty: undefined or an empty text
    std::string comment;

    /// The address without its number.
    [[nodiscard]] std::string_view Kind() const;
};

/// Reads a CSV file as the module exports it. False when it cannot be read.
[[nodiscard]] bool ReadListTable(const std::string& path, std::vector<ListLine>& lines);

}  // namespace workbench::cli
