#include <oleacc.h>

#include "ui/grid/grid_accessible.h"
#include "ui/grid/grid_control.h"

namespace orvell::ui {

GridRange CGridCtrl::ValueCells() const {
    return {
        .firstRow = model_.GetFixedRowCount(),
        .endRow = model_.GetRowCount(),
        .firstColumn = model_.FirstValueColumn(),
        .endColumn = model_.GetColumnCount(),
        .pageRows = layout_.PageRows(),
    };
}

void CGridCtrl::SetCurrentCell(GridPosition position) {
    ChangeSelection([&] { selection_.MoveTo(position, ValueCells()); });
}

void CGridCtrl::ExtendSelection(int row) {
    ChangeSelection([&] { selection_.ExtendTo(row, ValueCells()); });
}

void CGridCtrl::MoveCurrent(GridMovement movement, bool extend) {
    ChangeSelection([&] { selection_.Move(movement, extend, ValueCells()); });
}

template <typename Change>
void CGridCtrl::ChangeSelection(const Change& change) {
    const GridSelection before = selection_;
    change();
    const GridPosition current = selection_.Current();
    if (!current.IsNone() && layout_.Reveal(current) && window_ != nullptr) {
        UpdateBarPositions();
        Invalidate();
    }
    if (selection_ == before) {
        return;
    }
    InvalidateSelection(before);
    InvalidateSelection(selection_);
    if (current == before.Current()) {
        return;
    }
    if (GetFocus() == window_) {
        Tell(EVENT_OBJECT_FOCUS, current);
    }
    Tell(EVENT_OBJECT_SELECTION, current);
}

void CGridCtrl::Tell(DWORD event, GridPosition position) const {
    if (window_ != nullptr) {
        NotifyWinEvent(event, window_, OBJID_CLIENT, ChildIdOf(position));
    }
}

LONG CGridCtrl::ChildIdOf(GridPosition position) const {
    return position.IsNone() ? CHILDID_SELF
                             : position.row * model_.GetColumnCount() + position.column + 1;
}

LRESULT CGridCtrl::OnGetObject(WPARAM wParam, LPARAM lParam) {
    if (static_cast<DWORD>(lParam) != static_cast<DWORD>(OBJID_CLIENT)) {
        return OnDefault(WM_GETOBJECT, wParam, lParam);
    }
    if (accessible_ == nullptr) {
        accessible_ = std::make_unique<GridAccessible>(*this).release();
    }
    return LresultFromObject(IID_IAccessible, wParam, accessible_);
}

}  // namespace orvell::ui
