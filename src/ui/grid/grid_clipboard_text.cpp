#include "ui/grid/grid_clipboard_text.h"

namespace orvell::ui {
namespace {

constexpr std::string_view kLineEnds = "\r\n";

void AppendLine(std::string& lines, std::string_view text) {
    for (const char character : text) {
        const bool wouldEndTheCell = character == '\r' || character == '\n' || character == '\t';
        lines += wouldEndTheCell ? ' ' : character;
    }
    lines += kLineEnds;
}

}  // namespace

std::string CopiedText(const GridModel& model, const GridSelection& selection) {
    const int column = selection.Current().column;
    if (!selection.IsRange()) {
        return model.GetItemText(selection.Current().row, column);
    }
    std::string lines;
    for (int row = selection.FirstRow(); row <= selection.LastRow(); ++row) {
        AppendLine(lines, model.GetItemText(row, column));
    }
    return lines;
}

std::optional<std::string_view> ClipboardLines::Next() {
    if (rest_.empty()) {
        return std::nullopt;
    }
    const std::size_t end = rest_.find_first_of(kLineEnds);
    const std::string_view line = rest_.substr(0, end);
    if (end == std::string_view::npos) {
        rest_ = {};
    } else {
        rest_.remove_prefix(end + (rest_.substr(end).starts_with(kLineEnds) ? 2 : 1));
    }
    const std::size_t tab = line.rfind('\t');
    return tab == std::string_view::npos ? line : line.substr(tab + 1);
}

}  // namespace orvell::ui
