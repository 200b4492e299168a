#pragma once

#include <optional>

namespace orvell::ui {

/// A cell's place. Row -1: none.
struct GridPosition {
    int row = -1;
    int column = -1;

    [[nodiscard]] bool IsNone() const { return row < 0; }
    friend bool operator==(const GridPosition&, const GridPosition&) = default;
};

/// Steps of the current cell.
enum class GridMovement {
    Up,
    Down,
    Left,
    Right,
    PageUp,
    PageDown,
    FirstRow,
    LastRow,
    FirstColumn,
    LastColumn,
    Next,      ///< to the right, then to the next row's first value cell
    Previous,  ///< to the left, then to the last cell of the row above
};

/// The keys that move, by Windows' virtual-key codes.
namespace grid_key {
inline constexpr unsigned kPageUp = 0x21;
inline constexpr unsigned kPageDown = 0x22;
inline constexpr unsigned kEnd = 0x23;
inline constexpr unsigned kHome = 0x24;
inline constexpr unsigned kLeft = 0x25;
inline constexpr unsigned kUp = 0x26;
inline constexpr unsigned kRight = 0x27;
inline constexpr unsigned kDown = 0x28;
}  // namespace grid_key

/// What a key does to the current cell while nothing is edited; none for keys that do not move.
[[nodiscard]] std::optional<GridMovement> MovementOfKey(unsigned key, bool isControlDown);

/// The value cells, among which the current cell moves, and how many rows a page has.
struct GridRange {
    int firstRow = 0;
    int endRow = 0;  ///< one behind the last
    int firstColumn = 0;
    int endColumn = 0;  ///< one behind the last
    int pageRows = 1;

    [[nodiscard]] bool IsEmpty() const { return firstRow >= endRow || firstColumn >= endColumn; }
};

/// Where a step leads; at the grid's edge the cell stays. None when the range has no cells.
[[nodiscard]] GridPosition Moved(GridPosition from, GridMovement movement, const GridRange& range);

/// The cell of the range that is nearest to this place. None when the range has no cells.
[[nodiscard]] GridPosition NearestIn(const GridRange& range, GridPosition position);

}  // namespace orvell::ui
