#include "ui/grid/grid_movement.h"

#include <algorithm>
#include <array>

namespace orvell::ui {
namespace {

struct KeyRow {
    unsigned key;
    GridMovement alone;
    GridMovement withControl;
};

constexpr std::array kKeys = {
    KeyRow{grid_key::kUp, GridMovement::Up, GridMovement::FirstRow},
    KeyRow{grid_key::kDown, GridMovement::Down, GridMovement::LastRow},
    KeyRow{grid_key::kLeft, GridMovement::Left, GridMovement::FirstColumn},
    KeyRow{grid_key::kRight, GridMovement::Right, GridMovement::LastColumn},
    KeyRow{grid_key::kPageUp, GridMovement::PageUp, GridMovement::FirstRow},
    KeyRow{grid_key::kPageDown, GridMovement::PageDown, GridMovement::LastRow},
    KeyRow{grid_key::kHome, GridMovement::FirstColumn, GridMovement::FirstRow},
    KeyRow{grid_key::kEnd, GridMovement::LastColumn, GridMovement::LastRow},
};

GridPosition NextCell(GridPosition from, const GridRange& range) {
    if (from.column + 1 < range.endColumn) {
        return {from.row, from.column + 1};
    }
    return from.row + 1 < range.endRow ? GridPosition{from.row + 1, range.firstColumn} : from;
}

GridPosition PreviousCell(GridPosition from, const GridRange& range) {
    if (from.column > range.firstColumn) {
        return {from.row, from.column - 1};
    }
    return from.row > range.firstRow ? GridPosition{from.row - 1, range.endColumn - 1} : from;
}

GridPosition Step(GridPosition from, GridMovement movement, const GridRange& range) {
    switch (movement) {
        case GridMovement::Up:
            return {from.row - 1, from.column};
        case GridMovement::Down:
            return {from.row + 1, from.column};
        case GridMovement::Left:
            return {from.row, from.column - 1};
        case GridMovement::Right:
            return {from.row, from.column + 1};
        case GridMovement::PageUp:
            return {from.row - std::min(range.pageRows, from.row), from.column};
        case GridMovement::PageDown:
            return {from.row + std::min(range.pageRows, range.endRow - from.row), from.column};
        case GridMovement::FirstRow:
            return {range.firstRow, from.column};
        case GridMovement::LastRow:
            return {range.endRow - 1, from.column};
        case GridMovement::FirstColumn:
            return {from.row, range.firstColumn};
        case GridMovement::LastColumn:
            return {from.row, range.endColumn - 1};
        case GridMovement::Next:
            return NextCell(from, range);
        case GridMovement::Previous:
            return PreviousCell(from, range);
    }
    return from;
}

}  // namespace

std::optional<GridMovement> MovementOfKey(unsigned key, bool isControlDown) {
    const auto row = std::find_if(kKeys.begin(), kKeys.end(),
                                  [key](const KeyRow& candidate) { return candidate.key == key; });
    if (row == kKeys.end()) {
        return std::nullopt;
    }
    return isControlDown ? row->withControl : row->alone;
}

GridPosition Moved(GridPosition from, GridMovement movement, const GridRange& range) {
    const GridPosition start = NearestIn(range, from);
    return start.IsNone() ? start : NearestIn(range, Step(start, movement, range));
}

GridPosition NearestIn(const GridRange& range, GridPosition position) {
    if (range.IsEmpty()) {
        return {};
    }
    return {std::clamp(position.row, range.firstRow, range.endRow - 1),
            std::clamp(position.column, range.firstColumn, range.endColumn - 1)};
}

}  // namespace orvell::ui
