#include "ui/grid/grid_model.h"

#include <algorithm>
#include <utility>

namespace orvell::ui {
namespace {

const std::string kNoText;

bool HasRoom(int rows, int columns) {
    return std::int64_t{rows} * columns <= GridModel::kMaxCellCount;
}

bool IsDecimalNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsChoice(const GridChoices& choices, std::string_view text) {
    return choices != nullptr && choices->Contains(text);
}

}  // namespace

void GridModel::SetFixedRowCount(int count) {
    fixedRowCount_ = std::max(count, 0);
}

void GridModel::SetFixedColumnCount(int count) {
    fixedColumnCount_ = std::max(count, 0);
}

void GridModel::SetColumnCount(int count) {
    count = std::max(count, 0);
    if (count == columnCount_ || !HasRoom(rowCount_, count)) {
        return;
    }
    std::deque<GridCellSlot> cells(
        static_cast<std::size_t>(rowCount_) * static_cast<std::size_t>(count),
        GridCellSlot(CGridCell(defaultCell_)));
    const int kept = std::min(count, columnCount_);
    auto to = cells.begin();
    for (auto from = cells_.begin(); from != cells_.end(); from += columnCount_) {
        std::move(from, from + kept, to);
        to += count;
    }
    cells_ = std::move(cells);
    columnCount_ = count;
}

void GridModel::SetRowCount(int count) {
    count = std::max(count, 0);
    if (!HasRoom(count, columnCount_)) {
        return;
    }
    cells_.resize(static_cast<std::size_t>(count) * static_cast<std::size_t>(columnCount_),
                  GridCellSlot(CGridCell(defaultCell_)));
    rowCount_ = count;
}

int GridModel::InsertRow(std::string_view text, int position) {
    const int row = position == -1 ? rowCount_ : position;
    if (row < 0 || row > rowCount_ || columnCount_ == 0 || !HasRoom(rowCount_ + 1, columnCount_)) {
        return -1;
    }
    std::string name(text);
    const GridCellSlot newCell{CGridCell(defaultCell_)};
    if (row == rowCount_) {
        cells_.resize(cells_.size() + static_cast<std::size_t>(columnCount_), newCell);
    } else {
        cells_.insert(cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(row, 0)),
                      static_cast<std::size_t>(columnCount_), newCell);
    }
    ++rowCount_;
    CellIn(cells_[IndexOf(row, 0)]).SetText(std::move(name));
    return row;
}

bool GridModel::DeleteRow(int row) {
    if (row < 0 || row >= rowCount_) {
        return false;
    }
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(IndexOf(row, 0));
    cells_.erase(first, first + columnCount_);
    --rowCount_;
    return true;
}

void GridModel::SetItemText(int row, int column, std::string_view text) {
    if (CGridCellBase* const cell = ChangeableCell(row, column)) {
        cell->AssignText(text);
    }
}

const std::string& GridModel::GetItemText(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return cell == nullptr ? kNoText : cell->Text();
}

void GridModel::SetItemData(int row, int column, std::uint32_t data) {
    if (CGridCellBase* const cell = ChangeableCell(row, column)) {
        cell->SetData(data);
    }
}

std::uint32_t GridModel::GetItemData(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return cell == nullptr ? 0 : cell->Data();
}

void GridModel::SetItemState(int row, int column, std::uint32_t state) {
    if (CGridCellBase* const cell = ChangeableCell(row, column)) {
        cell->SetState(state);
    }
}

std::uint32_t GridModel::GetItemState(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return cell == nullptr ? 0 : cell->State();
}

void GridModel::SetItemFormat(int row, int column, std::uint32_t format) {
    if (CGridCellBase* const cell = ChangeableCell(row, column)) {
        cell->SetFormat(format);
    }
}

std::uint32_t GridModel::GetItemFormat(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return cell == nullptr ? 0 : cell->Format();
}

void GridModel::SetItemBackColour(int row, int column, Colour colour) {
    if (CGridCellBase* const cell = ChangeableCell(row, column)) {
        cell->SetBackColour(colour);
    }
}

Colour GridModel::GetItemBackColour(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return cell == nullptr ? 0 : cell->BackColour();
}

void GridModel::SetItemTextColour(int row, int column, Colour colour) {
    if (CGridCellBase* const cell = ChangeableCell(row, column)) {
        cell->SetTextColour(colour);
    }
}

Colour GridModel::GetItemTextColour(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return cell == nullptr ? 0 : cell->TextColour();
}

void GridModel::SetItemFont(int row, int column, void* font) {
    if (CGridCellBase* const cell = ChangeableCell(row, column)) {
        cell->SetFont(font);
    }
}

void* GridModel::GetItemFont(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return cell == nullptr ? nullptr : cell->Font();
}

bool GridModel::SetCellType(int row, int column, GridCellKind kind) {
    GridCellSlot* const slot = SlotAt(row, column);
    if (slot == nullptr) {
        return false;
    }
    ChangeKind(*slot, kind);
    return true;
}

GridCellKind GridModel::GetCellType(int row, int column) const {
    const GridCellSlot* const slot = SlotAt(row, column);
    return slot == nullptr ? GridCellKind::Text : KindOf(*slot);
}

void GridModel::SetChoices(int row, int column, GridChoices choices) {
    GridCellSlot* const slot = SlotAt(row, column);
    if (auto* const combo = std::get_if<CGridCellCombo>(slot)) {
        combo->SetChoices(std::move(choices));
    }
}

GridChoices GridModel::GetChoices(int row, int column) const {
    const auto* const combo = std::get_if<CGridCellCombo>(SlotAt(row, column));
    return combo == nullptr ? nullptr : combo->Choices();
}

const CGridCellBase* GridModel::CellAt(int row, int column) const {
    const GridCellSlot* const slot = SlotAt(row, column);
    return slot == nullptr ? nullptr : &CellIn(*slot);
}

CGridCellBase* GridModel::ChangeableCell(int row, int column) {
    GridCellSlot* const slot = SlotAt(row, column);
    return slot == nullptr ? nullptr : &CellIn(*slot);
}

bool GridModel::IsFixed(int row, int column) const {
    return row < fixedRowCount_ || column < fixedColumnCount_;
}

bool GridModel::IsValueCell(int row, int column) const {
    return IsInside(row, column) && row >= fixedRowCount_ && column >= FirstValueColumn();
}

bool GridModel::IsCellEditable(int row, int column) const {
    const CGridCellBase* const cell = CellAt(row, column);
    return editable_ && cell != nullptr && IsValueCell(row, column) && !cell->IsReadOnly();
}

bool GridModel::TakesText(int row, int column, std::string_view text) const {
    if (!IsCellEditable(row, column)) {
        return false;
    }
    switch (GetCellType(row, column)) {
        case GridCellKind::Text:
            return true;
        case GridCellKind::Check:
            return false;
        case GridCellKind::Combo:
            return IsDecimalNumber(text) || IsChoice(GetChoices(row, column), text);
    }
    return false;
}

int GridModel::FirstValueColumn() const {
    return std::min(std::max(fixedColumnCount_, 1), columnCount_);
}

bool GridModel::IsInside(int row, int column) const {
    return row >= 0 && row < rowCount_ && column >= 0 && column < columnCount_;
}

std::size_t GridModel::IndexOf(int row, int column) const {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columnCount_) +
           static_cast<std::size_t>(column);
}

GridCellSlot* GridModel::SlotAt(int row, int column) {
    return IsInside(row, column) ? &cells_[IndexOf(row, column)] : nullptr;
}

const GridCellSlot* GridModel::SlotAt(int row, int column) const {
    return IsInside(row, column) ? &cells_[IndexOf(row, column)] : nullptr;
}

}  // namespace orvell::ui
