#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ui/grid/grid_model.h"
#include "ui/grid/grid_selection.h"

namespace orvell::ui {

/// What a copy puts on the clipboard: the current cell's text as it stands, or the range as lines
/// that each end with CR LF, as spreadsheets write and read them. In lines, CR, LF and tab within
/// a text become blanks, since they would end the line or the cell.
[[nodiscard]] std::string CopiedText(const GridModel& model, const GridSelection& selection);

/// Takes a clipboard's text apart into values: of each line what follows its last tab. Lines end
/// with CR LF, LF or CR; no line follows the last line end.
class ClipboardLines {
  public:
    /// `text` must live as long as the object.
    explicit ClipboardLines(std::string_view text) : rest_(text) {}

    /// The next line's value, none behind the last line.
    [[nodiscard]] std::optional<std::string_view> Next();

  private:
    std::string_view rest_;
};

}  // namespace orvell::ui
