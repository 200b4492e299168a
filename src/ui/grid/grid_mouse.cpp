#include <windowsx.h>

#include <algorithm>

#include "ui/grid/grid_control.h"
#include "ui/grid/grid_painter.h"

namespace orvell::ui {
namespace {

constexpr UINT_PTR kDragTimer = 1;
constexpr UINT kDragTimerMilliseconds = 50;
constexpr int kNarrowestColumn = 8;

POINT MouseIn(HWND window) {
    POINT point = {};
    GetCursorPos(&point);
    ScreenToClient(window, &point);
    return point;
}

}  // namespace

void CGridCtrl::OnButtonDown(POINT point, bool isShiftDown) {
    EndEdit(true);
    if (window_ == nullptr) {
        return;
    }
    SetFocus(window_);
    if (const int border = DraggableBorderAt(point); border >= 0) {
        return BeginColumnDrag(border, point.x);
    }
    if (const auto cell = layout_.CellAtPoint(point.x, point.y)) {
        PressCell(*cell, point, isShiftDown);
    }
}

/// A click on a row's name means the row's first value.
void CGridCtrl::PressCell(GridPosition position, POINT point, bool isShiftDown) {
    if (position.row < model_.GetFixedRowCount()) {
        return;
    }
    if (isShiftDown) {
        ExtendSelection(position.row);
    } else {
        SetCurrentCell(position);
    }
    const GridRect cell = layout_.CellRect(position);
    const GridCellKind kind = model_.GetCellType(position.row, position.column);
    if (kind == GridCellKind::Check && CheckBoxRect(cell, metrics_).Contains(point.x, point.y)) {
        Activate(position, GridEditStart::Nothing);
    } else if (kind == GridCellKind::Combo &&
               ArrowRect(cell, metrics_).Contains(point.x, point.y)) {
        Activate(position, GridEditStart::DropDown);
    } else {
        drag_ = Drag::Rows;
        SetCapture(window_);
        SetTimer(window_, kDragTimer, kDragTimerMilliseconds, nullptr);
    }
}

void CGridCtrl::OnDoubleClick(POINT point) {
    const auto cell = layout_.CellAtPoint(point.x, point.y);
    if (DraggableBorderAt(point) < 0 && cell.has_value() && CanChange(*cell)) {
        SetFocus(window_);
        Activate(*cell, GridEditStart::DropDown);
    }
}

void CGridCtrl::OnMouseMove(POINT point) {
    if (drag_ == Drag::Rows) {
        ExtendSelection(layout_.RowNearPoint(point.y));
    } else if (drag_ == Drag::Column) {
        const int narrowest = ScaledForDpi(kNarrowestColumn, dpi_);
        SetColumnWidth(draggedColumn_, std::max<int>(point.x - dragStart_, narrowest));
    }
}

/// Scrolls on while the mouse is held still above or below the rows.
void CGridCtrl::OnDragTimer() {
    const POINT point = MouseIn(window_);
    if (drag_ == Drag::Rows &&
        (point.y < layout_.FixedHeight() || point.y >= layout_.ClientHeight())) {
        OnMouseMove(point);
    }
}

void CGridCtrl::BeginColumnDrag(int column, int x) {
    drag_ = Drag::Column;
    draggedColumn_ = column;
    dragStart_ = x - layout_.ColumnWidth(column);
    SetCapture(window_);
}

void CGridCtrl::EndDrag() {
    if (std::exchange(drag_, Drag::None) == Drag::None) {
        return;
    }
    KillTimer(window_, kDragTimer);
    if (GetCapture() == window_) {
        ReleaseCapture();
    }
}

bool CGridCtrl::OnSetCursor() const {
    if (DraggableBorderAt(MouseIn(window_)) < 0) {
        return false;
    }
    SetCursor(LoadCursor(nullptr, IDC_SIZEWE));
    return true;
}

int CGridCtrl::DraggableBorderAt(POINT point) const {
    const bool isInHeading = point.y >= 0 && point.y < layout_.FixedHeight();
    return isInHeading ? layout_.ColumnBorderAt(point.x, metrics_.borderReach) : -1;
}

}  // namespace orvell::ui
