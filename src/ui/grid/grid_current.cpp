#include <oleacc.h>

#include <utility>

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
    if (current != before.Current()) {
        TellCurrentCell();
    }
}

/// One event stands for all rows that came or went: their number is not limited. Nor are the texts
/// of other cells than the current one told, which nobody is reading.
void CGridCtrl::TellModelChange(GridPosition currentBefore) {
    if (std::exchange(toldRows_, model_.GetRowCount()) != model_.GetRowCount()) {
        Tell(EVENT_OBJECT_REORDER, {});
    }
    if (selection_.Current() == currentBefore) {
        TellNewText();
    } else {
        TellCurrentCell();
    }
}

void CGridCtrl::TellCurrentCell() {
    const GridPosition current = selection_.Current();
    toldText_ = CurrentText();
    if (GetFocus() == window_) {
        Tell(EVENT_OBJECT_FOCUS, current);
    }
    Tell(current.IsNone() ? EVENT_OBJECT_SELECTIONWITHIN : EVENT_OBJECT_SELECTION, current);
}

/// Tells of the current cell's text if it is no longer the one that was told.
void CGridCtrl::TellNewText() {
    if (toldText_ != CurrentText()) {
        toldText_ = CurrentText();
        Tell(EVENT_OBJECT_VALUECHANGE, selection_.Current());
    }
}

const std::string& CGridCtrl::CurrentText() const {
    return model_.GetItemText(selection_.Current().row, selection_.Current().column);
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
