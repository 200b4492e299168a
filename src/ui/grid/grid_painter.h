#pragma once

#include <windows.h>

#include <string_view>
#include <vector>

#include "ui/grid/grid_cell_source.h"
#include "ui/grid/grid_layout.h"
#include "ui/grid/grid_look.h"
#include "ui/grid/grid_selection.h"

namespace orvell::ui {

/// All that a picture of a grid depends on. Everything is borrowed.
struct GridView {
    const GridCellSource& cells;
    const GridLayout& layout;
    const GridSelection& selection;
    GridColours colours;
    GridMetrics metrics;
    HFONT font;
    bool isEnabled;
    bool isFocused;
};

[[nodiscard]] inline RECT ToRect(const GridRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

/// Where a check cell's box and a combo cell's arrow lie, as pixels of the client area.
[[nodiscard]] GridRect CheckBoxRect(const GridRect& cell, const GridMetrics& metrics);
[[nodiscard]] GridRect ArrowRect(const GridRect& cell, const GridMetrics& metrics);

/// Draws the part of a grid that lies in an area of its window. Asks only for cells that can be
/// seen in it.
class GridPainter {
  public:
    /// Both must outlive the painter.
    GridPainter(HDC canvas, const GridView& view);
    ~GridPainter();
    GridPainter(const GridPainter&) = delete;
    GridPainter& operator=(const GridPainter&) = delete;

    /// Draws every pixel of the area.
    void Paint(const GridRect& area) const;

  private:
    struct CellColours {
        Colour back;
        Colour text;
    };

    void PaintRows(const GridRows& rows, const std::vector<int>& columns) const;
    void PaintCell(GridPosition position) const;
    void PaintDecorated(GridPosition position, const GridRect& inside, const CGridCellBase& cell,
                        GridCellKind kind) const;
    void PaintCheckBox(const GridRect& inside, const CGridCellBase& cell) const;
    void PaintArrow(const GridRect& inside, Colour colour) const;
    void PaintText(const CGridCellBase& cell, const GridRect& room, const GridRect& ground) const;
    void PaintLine(const CGridCellBase& cell, const GridRect& room, const GridRect& ground) const;
    void PaintLines(std::string_view text, const GridRect& room, const GridRect& ground,
                    UINT format) const;
    void PaintCurrentFrame() const;
    void Fill(const GridRect& rect, Colour colour) const;
    void FillGround(const GridRect& rect) const;  // in the present colour

    [[nodiscard]] GridRect WithPadding(const GridRect& inside) const;

    [[nodiscard]] bool IsHeading(GridPosition position) const;
    [[nodiscard]] bool IsSelected(GridPosition position) const;
    [[nodiscard]] CellColours ColoursOf(GridPosition position, const CGridCellBase& cell) const;

    HDC canvas_;
    const GridView& view_;
    int savedState_;
};

}  // namespace orvell::ui
