#include "ui/grid/grid_control.h"
#include "ui/grid/grid_painter.h"

namespace orvell::ui {
namespace {

/// Painting between BeginPaint and EndPaint, which tells Windows that the area is drawn.
class PaintScope {
  public:
    explicit PaintScope(HWND window) : window_(window) { BeginPaint(window, &paint_); }
    ~PaintScope() { EndPaint(window_, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;

    [[nodiscard]] HDC Canvas() const { return paint_.hdc; }
    [[nodiscard]] GridRect Area() const {
        return {paint_.rcPaint.left, paint_.rcPaint.top, paint_.rcPaint.right,
                paint_.rcPaint.bottom};
    }

  private:
    HWND window_;
    PAINTSTRUCT paint_ = {};
};

/// A bitmap in memory in place of an area of a canvas.
class MemoryCanvas {
  public:
    MemoryCanvas(HDC canvas, const GridRect& area)
        : memory_(CreateCompatibleDC(canvas)),
          bitmap_(CreateCompatibleBitmap(canvas, area.right - area.left, area.bottom - area.top)) {
        if (IsUsable()) {
            before_ = SelectObject(memory_, bitmap_);
            SetViewportOrgEx(memory_, -area.left, -area.top, nullptr);
        }
    }
    ~MemoryCanvas() {
        if (IsUsable()) {
            SelectObject(memory_, before_);
        }
        DeleteObject(bitmap_);
        DeleteDC(memory_);
    }
    MemoryCanvas(const MemoryCanvas&) = delete;
    MemoryCanvas& operator=(const MemoryCanvas&) = delete;

    [[nodiscard]] bool IsUsable() const { return memory_ != nullptr && bitmap_ != nullptr; }
    [[nodiscard]] HDC Get() const { return memory_; }

  private:
    HDC memory_;
    HBITMAP bitmap_;
    HGDIOBJ before_ = nullptr;
};

}  // namespace

void CGridCtrl::OnPaint() {
    const PaintScope paint(window_);
    if (paint.Canvas() != nullptr && !paint.Area().IsEmpty()) {
        PaintBuffered(paint.Canvas(), paint.Area());
    }
}

void CGridCtrl::PaintBuffered(HDC canvas, const GridRect& area) const {
    const MemoryCanvas memory(canvas, area);
    if (!memory.IsUsable()) {
        return PaintArea(canvas, area);
    }
    PaintArea(memory.Get(), area);
    BitBlt(canvas, area.left, area.top, area.right - area.left, area.bottom - area.top,
           memory.Get(), area.left, area.top, SRCCOPY);
}

void CGridCtrl::PaintArea(HDC canvas, const GridRect& area) const {
    const HWND focus = GetFocus();
    const GridView view = {
        .cells = model_,
        .layout = layout_,
        .selection = selection_,
        .colours = colours_,
        .metrics = metrics_,
        .font = font_.Get(),
        .isEnabled = IsWindowEnabled(window_) != 0,
        .isFocused = focus == window_ || (focus != nullptr && IsChild(window_, focus) != 0),
    };
    GridPainter(canvas, view).Paint(area);
}

void CGridCtrl::Invalidate() const {
    if (window_ != nullptr) {
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void CGridCtrl::Invalidate(GridPosition position) const {
    const GridRect visible = layout_.VisiblePart(position);
    if (window_ != nullptr && !position.IsNone() && !visible.IsEmpty()) {
        const RECT rect = ToRect(visible);
        InvalidateRect(window_, &rect, FALSE);
    }
}

void CGridCtrl::InvalidateSelection(const GridSelection& selection) const {
    if (window_ == nullptr || selection.Current().IsNone()) {
        return;
    }
    const int column = selection.Current().column;
    const GridRect first = layout_.CellRect({selection.FirstRow(), column});
    const GridRect last = layout_.CellRect({selection.LastRow(), column});
    const RECT rect = {first.left, first.top, first.right, last.bottom};
    InvalidateRect(window_, &rect, FALSE);
}

}  // namespace orvell::ui
