#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <string>
#include <string_view>

#include "ui/grid/grid_cell.h"
#include "ui/grid/grid_cell_source.h"

namespace orvell::ui {

/// The rows and columns of a grid, without a window. Rows and columns count from 0.
///
/// The first rows may be fixed: headings, which neither scroll nor can be edited. The first column
/// names its rows; the cells right of it are the value cells, between which the user moves.
///
/// A place outside the grid may be asked for everything and given anything: it answers with empty
/// texts and zeroes and keeps nothing. Functions that make cells throw std::bad_alloc when memory
/// is short; the grid then is as it was.
class GridModel final : public GridCellSource {
  public:
    /// A grid has at most this many cells, so that each has a number of its own in 31 bits.
    static constexpr int kMaxCellCount = std::numeric_limits<int>::max() - 1;

    /// Whether the user may edit at all; true at first.
    void SetEditable(bool editable) { editable_ = editable; }

    void SetFixedRowCount(int count);
    void SetFixedColumnCount(int count);

    /// Negative counts are 0; counts that lead to more than `kMaxCellCount` cells change nothing.
    void SetColumnCount(int count);
    void SetRowCount(int count);

    [[nodiscard]] int GetRowCount() const { return rowCount_; }
    [[nodiscard]] int GetColumnCount() const { return columnCount_; }
    [[nodiscard]] int GetFixedRowCount() const { return fixedRowCount_; }
    [[nodiscard]] int GetFixedColumnCount() const { return fixedColumnCount_; }

    /// The cell from which new cells take their format, colours and font.
    [[nodiscard]] CGridDefaultCell& DefaultCell() { return defaultCell_; }

    /// Inserts a row with this text in column 0 before the row at `position`; -1: at the end, in
    /// constant time. Returns the new row, -1 when there is no such position, no column, or no
    /// room.
    int InsertRow(std::string_view text, int position = -1);

    /// Deletes a row, at the end in constant time. False when there is no such row.
    bool DeleteRow(int row);

    void SetItemText(int row, int column, std::string_view text);
    /// Valid until the cell changes or rows or columns come or go.
    [[nodiscard]] const std::string& GetItemText(int row, int column) const;

    void SetItemData(int row, int column, std::uint32_t data);
    [[nodiscard]] std::uint32_t GetItemData(int row, int column) const;

    /// Bits kGridCell...
    void SetItemState(int row, int column, std::uint32_t state);
    [[nodiscard]] std::uint32_t GetItemState(int row, int column) const;

    /// Bits kGridText...
    void SetItemFormat(int row, int column, std::uint32_t format);
    [[nodiscard]] std::uint32_t GetItemFormat(int row, int column) const;

    void SetItemBackColour(int row, int column, Colour colour);
    [[nodiscard]] Colour GetItemBackColour(int row, int column) const;
    void SetItemTextColour(int row, int column, Colour colour);
    [[nodiscard]] Colour GetItemTextColour(int row, int column) const;

    /// A font handle, not owned; null for the grid's font.
    void SetItemFont(int row, int column, void* font);
    [[nodiscard]] void* GetItemFont(int row, int column) const;

    /// Makes the cell one of this kind and keeps what all kinds hold. False when there is no cell.
    bool SetCellType(int row, int column, GridCellKind kind);
    [[nodiscard]] GridCellKind GetCellType(int row, int column) const override;

    /// The choices of a combo cell; other cells have none.
    void SetChoices(int row, int column, GridChoices choices);
    [[nodiscard]] GridChoices GetChoices(int row, int column) const;

    [[nodiscard]] const CGridCellBase* CellAt(int row, int column) const override;

    [[nodiscard]] bool IsFixed(int row, int column) const;
    [[nodiscard]] bool IsValueCell(int row, int column) const;
    /// Whether the user may change this cell's text or check mark.
    [[nodiscard]] bool IsCellEditable(int row, int column) const;
    /// Whether an edit of this cell may end with this text: any for a text cell, none for a check
    /// cell; for a combo cell one of its choices, or a decimal number, as which a value without a
    /// name is shown.
    [[nodiscard]] bool TakesText(int row, int column, std::string_view text) const;
    /// Column of the first value cell of each row; the column count when there are none.
    [[nodiscard]] int FirstValueColumn() const;

  private:
    [[nodiscard]] bool IsInside(int row, int column) const;
    [[nodiscard]] std::size_t IndexOf(int row, int column) const;
    [[nodiscard]] GridCellSlot* SlotAt(int row, int column);
    [[nodiscard]] const GridCellSlot* SlotAt(int row, int column) const;
    [[nodiscard]] CGridCellBase* ChangeableCell(int row, int column);

    bool editable_ = true;
    int fixedRowCount_ = 0;
    int fixedColumnCount_ = 0;
    int rowCount_ = 0;
    int columnCount_ = 0;
    CGridDefaultCell defaultCell_;
    std::deque<GridCellSlot> cells_;  ///< row by row; grows without moving what is there
};

}  // namespace orvell::ui
