#pragma once

#include "ui/grid/grid_movement.h"

namespace orvell::ui {

/// The current cell and the vertical range of cells that reaches from an anchor to it. Without a
/// range the anchor is the current cell's row.
class GridSelection {
  public:
    [[nodiscard]] GridPosition Current() const { return current_; }
    [[nodiscard]] int FirstRow() const;
    [[nodiscard]] int LastRow() const;
    [[nodiscard]] bool IsRange() const { return anchorRow_ != current_.row; }
    [[nodiscard]] bool Contains(GridPosition position) const;

    /// Makes the cell of the range of value cells that is nearest to `position` the current one and
    /// gives up the selected range.
    void MoveTo(GridPosition position, const GridRange& valueCells);

    /// Selects from the anchor to this row; the column stays.
    void ExtendTo(int row, const GridRange& valueCells);

    /// Moves the current cell; with `extend` a step up or down takes the end of the selected range
    /// along and leaves its anchor.
    void Move(GridMovement movement, bool extend, const GridRange& valueCells);

    /// Brings what lies outside the value cells back among them. The first value cell becomes
    /// current when none was.
    void KeepWithin(const GridRange& valueCells);

    friend bool operator==(const GridSelection&, const GridSelection&) = default;

  private:
    GridPosition current_;
    int anchorRow_ = -1;
};

}  // namespace orvell::ui
