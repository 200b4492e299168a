#include "ui/grid/grid_selection.h"

#include <algorithm>

namespace orvell::ui {

int GridSelection::FirstRow() const {
    return std::min(anchorRow_, current_.row);
}

int GridSelection::LastRow() const {
    return std::max(anchorRow_, current_.row);
}

bool GridSelection::Contains(GridPosition position) const {
    return !current_.IsNone() && position.column == current_.column && position.row >= FirstRow() &&
           position.row <= LastRow();
}

void GridSelection::MoveTo(GridPosition position, const GridRange& valueCells) {
    current_ = NearestIn(valueCells, position);
    anchorRow_ = current_.row;
}

void GridSelection::ExtendTo(int row, const GridRange& valueCells) {
    KeepWithin(valueCells);
    current_ = NearestIn(valueCells, {row, current_.column});
}

void GridSelection::Move(GridMovement movement, bool extend, const GridRange& valueCells) {
    KeepWithin(valueCells);
    const GridPosition target = Moved(current_, movement, valueCells);
    if (extend && target.column == current_.column) {
        current_ = target;
    } else {
        MoveTo(target, valueCells);
    }
}

void GridSelection::KeepWithin(const GridRange& valueCells) {
    if (current_.IsNone() || valueCells.IsEmpty()) {
        return MoveTo(current_, valueCells);
    }
    current_ = NearestIn(valueCells, current_);
    anchorRow_ = NearestIn(valueCells, {anchorRow_, current_.column}).row;
}

}  // namespace orvell::ui
