#pragma once

#include "ui/grid/grid_cell.h"

namespace orvell::ui {

/// Where a grid's painter takes its cells from.
class GridCellSource {
  public:
    GridCellSource() = default;
    virtual ~GridCellSource() = default;

    /// The cell at this place, null outside the grid. Valid until rows or columns come or go.
    [[nodiscard]] virtual const CGridCellBase* CellAt(int row, int column) const = 0;
    [[nodiscard]] virtual GridCellKind GetCellType(int row, int column) const = 0;

  protected:
    GridCellSource(const GridCellSource&) = default;
    GridCellSource(GridCellSource&&) = default;
    GridCellSource& operator=(const GridCellSource&) = default;
    GridCellSource& operator=(GridCellSource&&) = default;
};

}  // namespace orvell::ui
