#include "cli/table.h"

#include <algorithm>

namespace workbench::cli {

std::string Table::Text() const {
    std::vector<std::size_t> widths(columns_.size(), 0);
    for (const auto& line : lines_) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            widths[i] = std::max(widths[i], line[i].size());
        }
    }
    std::string text;
    for (const auto& line : lines_) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string space(widths[i] - line[i].size(), ' ');
            text += (i == 0 ? "" : "  ");
            text += columns_[i] == Align::Right ? space + line[i] : line[i] + space;
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

}  // namespace workbench::cli
