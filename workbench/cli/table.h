#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace workbench::cli {

enum class Align { Left, Right };

/// Lines of cells in aligned columns, two blanks apart.
class Table {
  public:
    explicit Table(std::vector<Align> columns) : columns_(std::move(columns)) {}

    /// `cells`: one for each column.
    void Add(std::vector<std::string> cells) { lines_.push_back(std::move(cells)); }

    /// All lines, each with a line feed, no blanks at its end.
    [[nodiscard]] std::string Text() const;

  private:
    std::vector<Align> columns_;
    std::vector<std::vector<std::string>> lines_;
};

}  // namespace workbench::cli
