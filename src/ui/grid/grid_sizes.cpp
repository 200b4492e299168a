#include <algorithm>

#include "ui/grid/grid_control.h"

namespace orvell::ui {
namespace {

struct BarNeeds {
    bool vertical;
    bool horizontal;
};

/// Which scroll bars a window with this room, scroll bars included, needs for its content. One bar
/// takes room that may make the other necessary.
BarNeeds NeededBars(SIZE room, const GridLayout& layout) {
    const int contentHeight = layout.ContentHeight();
    const int contentWidth = layout.ContentWidth();
    const int barWidth = GetSystemMetrics(SM_CXVSCROLL);
    const int barHeight = GetSystemMetrics(SM_CYHSCROLL);
    bool vertical = contentHeight > room.cy;
    const bool horizontal = contentWidth > room.cx - (vertical ? barWidth : 0);
    vertical = contentHeight > room.cy - (horizontal ? barHeight : 0);
    return {vertical, contentWidth > room.cx - (vertical ? barWidth : 0)};
}

bool HasStyle(HWND window, DWORD style) {
    return (static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE)) & style) != 0;
}

void ShowBar(HWND window, int bar, DWORD style, bool isNeeded) {
    if (HasStyle(window, style) != isNeeded) {
        ShowScrollBar(window, bar, isNeeded);
    }
}

/// The client area without scroll bars.
SIZE RoomOf(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    if (HasStyle(window, WS_VSCROLL)) {
        client.right += GetSystemMetrics(SM_CXVSCROLL);
    }
    if (HasStyle(window, WS_HSCROLL)) {
        client.bottom += GetSystemMetrics(SM_CYHSCROLL);
    }
    return {client.right, client.bottom};
}

void SetBar(HWND window, int bar, int length, int page, int position) {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = std::max(length - 1, 0);
    info.nPage = static_cast<UINT>(page);
    info.nPos = position;
    SetScrollInfo(window, bar, &info, TRUE);
}

std::optional<unsigned> WheelRowsOfSystem() {
    UINT rows = 0;
    if (SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &rows, 0) == 0) {
        return std::nullopt;
    }
    return rows;
}

}  // namespace

void CGridCtrl::SetColumnWidth(int column, int pixels) {
    EndEdit(true);
    layout_.SetShape(model_);
    layout_.SetColumnWidth(column, pixels);
    UpdateScrollBars();
    Invalidate();
}

int CGridCtrl::GetRowHeight(int) const {
    return layout_.RowHeight();
}

void CGridCtrl::Refresh() {
    if (IsEditing() && !model_.IsCellEditable(edited_.row, edited_.column)) {
        EndEdit(false);
    }
    layout_.SetShape(model_);
    const GridPosition currentBefore = selection_.Current();
    selection_.KeepWithin(ValueCells());
    Invalidate();
    TellModelChange(currentBefore);
}

void CGridCtrl::AdjustSizes() {
    Refresh();
    UpdateScrollBars();
}

void CGridCtrl::SetDpi(int dpi) {
    if (dpi <= 0 || dpi == dpi_) {
        return;
    }
    EndEdit(true);
    for (int column = 0; column < model_.GetColumnCount(); ++column) {
        layout_.SetColumnWidth(column, MulDiv(layout_.ColumnWidth(column), dpi, dpi_));
    }
    dpi_ = dpi;
    TakeSystemLook();
}

void CGridCtrl::OnSetFont(HFONT font, bool redraw) {
    EndEdit(true);
    font_.Set(font);
    UpdateMetrics();
    if (redraw && window_ != nullptr) {
        UpdateWindow(window_);
    }
}

void CGridCtrl::TakeSystemLook() {
    colours_ = SystemGridColours();
    font_.SetDpi(dpi_);
    UpdateMetrics();
}

void CGridCtrl::UpdateMetrics() {
    metrics_ = MeasureGrid(font_.Get(), dpi_);
    layout_.SetRowHeight(metrics_.rowHeight);
    UpdateScrollBars();
    Invalidate();
}

/// Showing a scroll bar sends WM_SIZE, which leads here again.
void CGridCtrl::UpdateScrollBars() {
    if (window_ == nullptr || std::exchange(isAdjustingBars_, true)) {
        return;
    }
    const BarNeeds needs = NeededBars(RoomOf(window_), layout_);
    ShowBar(window_, SB_VERT, WS_VSCROLL, needs.vertical);
    ShowBar(window_, SB_HORZ, WS_HSCROLL, needs.horizontal);
    TakeClientSize();
    UpdateBarPositions();
    isAdjustingBars_ = false;
}

/// After scrolling, when the bars themselves stay.
void CGridCtrl::UpdateBarPositions() {
    if (HasStyle(window_, WS_VSCROLL)) {
        SetBar(window_, SB_VERT, layout_.ScrollableRows(), layout_.PageRows(),
               layout_.ScrolledRows());
    }
    if (HasStyle(window_, WS_HSCROLL)) {
        SetBar(window_, SB_HORZ, layout_.ContentWidth(), layout_.ClientWidth(),
               layout_.ScrolledPixels());
    }
}

void CGridCtrl::TakeClientSize() {
    RECT client = {};
    GetClientRect(window_, &client);
    layout_.SetClientSize(client.right, client.bottom);
}

void CGridCtrl::OnScroll(int bar, WPARAM wParam) {
    ScrollTo(bar, ScrollTarget(bar, wParam));
}

int CGridCtrl::ScrollTarget(int bar, WPARAM wParam) const {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window_, bar, &info);
    const int line = bar == SB_VERT ? 1 : layout_.RowHeight();
    const int page = bar == SB_VERT ? layout_.PageRows() : layout_.ClientWidth();
    const int now = bar == SB_VERT ? layout_.ScrolledRows() : layout_.ScrolledPixels();
    switch (LOWORD(wParam)) {
        case SB_LINEUP:
            return now - line;
        case SB_LINEDOWN:
            return now + line;
        case SB_PAGEUP:
            return now - page;
        case SB_PAGEDOWN:
            return now + page;
        case SB_TOP:
            return 0;
        case SB_BOTTOM:
            return info.nMax;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return info.nTrackPos;  // the message itself carries 16 bits only
        default:
            return now;
    }
}

void CGridCtrl::ScrollTo(int bar, int position) {
    EndEdit(true);
    const bool hasMoved =
        bar == SB_VERT ? layout_.ScrollToRows(position) : layout_.ScrollToPixels(position);
    if (hasMoved && window_ != nullptr) {
        UpdateBarPositions();
        Invalidate();
    }
}

void CGridCtrl::OnWheel(WPARAM wParam) {
    const unsigned rowsForNotch = WheelRows(WheelRowsOfSystem(), platform::SystemRegistry());
    const int rows =
        verticalWheel_.RowsFor(GET_WHEEL_DELTA_WPARAM(wParam), rowsForNotch, layout_.PageRows());
    ScrollTo(SB_VERT, layout_.ScrolledRows() + rows);
}

}  // namespace orvell::ui
