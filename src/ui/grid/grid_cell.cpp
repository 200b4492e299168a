#include "ui/grid/grid_cell.h"

namespace orvell::ui {
namespace {

template <typename NewCell>
void Remake(GridCellSlot& slot) {
    NewCell remade(std::move(CellIn(slot)));
    slot = std::move(remade);
}

}  // namespace

CGridCell::CGridCell(const CGridDefaultCell& defaults) {
    SetFormat(defaults.Format());
    SetBackColour(defaults.BackColour());
    SetTextColour(defaults.TextColour());
    SetFont(defaults.Font());
}

CGridCellBase& CellIn(GridCellSlot& slot) {
    return std::visit([](auto& cell) -> CGridCellBase& { return cell; }, slot);
}

const CGridCellBase& CellIn(const GridCellSlot& slot) {
    return std::visit([](const auto& cell) -> const CGridCellBase& { return cell; }, slot);
}

GridCellKind KindOf(const GridCellSlot& slot) {
    return std::visit([](const auto& cell) { return cell.kKind; }, slot);
}

void ChangeKind(GridCellSlot& slot, GridCellKind kind) {
    if (KindOf(slot) == kind) {
        return;
    }
    switch (kind) {
        case GridCellKind::Text:
            return Remake<CGridCell>(slot);
        case GridCellKind::Check:
            return Remake<CGridCellCheck>(slot);
        case GridCellKind::Combo:
            return Remake<CGridCellCombo>(slot);
    }
}

}  // namespace orvell::ui
