#pragma once

#include <optional>
#include <vector>

#include "ui/grid/grid_model.h"
#include "ui/grid/grid_movement.h"

namespace orvell::ui {

/// A rectangle in pixels of the client area; right and bottom lie outside it.
struct GridRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] bool IsEmpty() const { return left >= right || top >= bottom; }
    [[nodiscard]] bool Contains(int x, int y) const {
        return x >= left && x < right && y >= top && y < bottom;
    }
    friend bool operator==(const GridRect&, const GridRect&) = default;
};

/// Thickness of the lines between the cells; each cell has them at its right and lower edge.
inline constexpr int kGridLine = 1;

[[nodiscard]] inline GridRect WithoutLine(const GridRect& cell) {
    return {cell.left, cell.top, cell.right - kGridLine, cell.bottom - kGridLine};
}

[[nodiscard]] inline GridRect Shrunk(const GridRect& rect, int by) {
    return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by};
}

/// The part of two rectangles that both have; empty when there is none.
[[nodiscard]] GridRect Intersection(const GridRect& one, const GridRect& other);

/// Rows from `first` to before `end`.
struct GridRows {
    int first = 0;
    int end = 0;
};

/// Where the cells of a grid lie in its window, and how far it is scrolled. Fixed rows and columns
/// stay in place; the others scroll, vertically by whole rows, horizontally by pixels. All rows
/// have one height.
class GridLayout {
  public:
    static constexpr int kUsualColumnWidth = 100;

    /// Takes the numbers of rows and columns from the model; scrolls back if less is left.
    void SetShape(const GridModel& model);
    void SetColumnWidth(int column, int pixels);
    void SetRowHeight(int pixels);
    void SetClientSize(int width, int height);

    [[nodiscard]] int ColumnWidth(int column) const;
    [[nodiscard]] int RowHeight() const { return rowHeight_; }
    [[nodiscard]] int ClientWidth() const { return clientWidth_; }
    [[nodiscard]] int ClientHeight() const { return clientHeight_; }
    /// Widths and heights of all cells, limited to what an int holds.
    [[nodiscard]] int ContentWidth() const;
    [[nodiscard]] int ContentHeight() const;
    [[nodiscard]] int FixedHeight() const;
    [[nodiscard]] int FixedWidth() const;

    /// The first row behind the fixed ones that is shown, counted from the first row of the grid.
    [[nodiscard]] int TopRow() const { return fixedRowCount_ + scrolledRows_; }
    [[nodiscard]] int ScrollableRows() const { return rowCount_ - fixedRowCount_; }
    [[nodiscard]] int ScrolledRows() const { return scrolledRows_; }
    [[nodiscard]] int ScrolledPixels() const { return scrolledPixels_; }
    [[nodiscard]] int LargestScrolledRows() const;
    [[nodiscard]] int LargestScrolledPixels() const;
    /// Rows that can be seen whole, at least one.
    [[nodiscard]] int PageRows() const;

    /// Both limit what they are given and say whether anything has moved.
    bool ScrollToRows(int rows);
    bool ScrollToPixels(int pixels);
    /// Scrolls no further than needed to see the cell whole, if it can be.
    bool Reveal(GridPosition position);

    /// The whole cell, also where it is scrolled out or reaches below the fixed cells.
    [[nodiscard]] GridRect CellRect(GridPosition position) const;
    /// The part of the cell that can be seen; empty when it is scrolled out.
    [[nodiscard]] GridRect VisiblePart(GridPosition position) const;

    /// The cell at a point; none where there is none.
    [[nodiscard]] std::optional<GridPosition> CellAtPoint(int x, int y) const;
    /// The row at a height, the nearest one above or below the rows that are shown: for dragging.
    [[nodiscard]] int RowNearPoint(int y) const;
    /// The column whose right border lies within `reach` pixels of x; -1 when there is none.
    [[nodiscard]] int ColumnBorderAt(int x, int reach) const;

    [[nodiscard]] bool IsFixed(GridPosition position) const {
        return IsFixedRow(position.row) || IsFixedColumn(position.column);
    }

    [[nodiscard]] GridRows FixedRowsIn(const GridRect& area) const;
    [[nodiscard]] GridRows ScrolledRowsIn(const GridRect& area) const;
    [[nodiscard]] std::vector<int> ColumnsIn(const GridRect& area) const;

  private:
    [[nodiscard]] bool IsFixedRow(int row) const { return row < fixedRowCount_; }
    [[nodiscard]] bool IsFixedColumn(int column) const { return column < fixedColumnCount_; }
    [[nodiscard]] int WholeScrolledRows() const;
    [[nodiscard]] int RowTop(int row) const;
    [[nodiscard]] int ColumnLeft(int column) const;
    void UpdateEdges();
    void LimitScrolling();

    int rowCount_ = 0;
    int columnCount_ = 0;
    int fixedRowCount_ = 0;
    int fixedColumnCount_ = 0;
    int rowHeight_ = 1;
    int clientWidth_ = 0;
    int clientHeight_ = 0;
    int scrolledRows_ = 0;
    int scrolledPixels_ = 0;
    std::vector<int> widths_;
    std::vector<int> edges_ = {0};  ///< left edge of each column, then the last one's right edge
};

}  // namespace orvell::ui
