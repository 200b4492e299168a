#include "ui/grid/grid_painter.h"

#include <algorithm>

namespace orvell::ui {
namespace {

static_assert(kGridTextCentred == DT_CENTER && kGridTextRight == DT_RIGHT);
static_assert(kGridTextCentredVertically == DT_VCENTER && kGridTextSingleLine == DT_SINGLELINE);

int Centred(int from, int to, int size) {
    return from + (to - from - size) / 2;
}

/// More characters than pixels cannot be seen.
int VisibleLength(const std::string& text, const GridRect& room) {
    const int pixels = std::max(room.right - room.left, 0);
    return static_cast<int>(std::min(text.size(), static_cast<std::size_t>(pixels) + 1));
}

int TextLeft(const GridRect& room, std::uint32_t format, int width) {
    if ((format & kGridTextCentred) != 0) {
        return Centred(room.left, room.right, width);
    }
    return (format & kGridTextRight) != 0 ? room.right - width : room.left;
}

}  // namespace

GridRect CheckBoxRect(const GridRect& cell, const GridMetrics& metrics) {
    const int left = cell.left + metrics.padding;
    const int top = Centred(cell.top, cell.bottom, metrics.checkBox);
    return {left, top, left + metrics.checkBox, top + metrics.checkBox};
}

GridRect ArrowRect(const GridRect& cell, const GridMetrics& metrics) {
    return {std::max(cell.right - metrics.arrow, cell.left), cell.top, cell.right, cell.bottom};
}

GridPainter::GridPainter(HDC canvas, const GridView& view)
    : canvas_(canvas), view_(view), savedState_(SaveDC(canvas)) {
    SelectObject(canvas_, view_.font);
}

GridPainter::~GridPainter() {
    RestoreDC(canvas_, savedState_);
}

void GridPainter::Paint(const GridRect& area) const {
    Fill(area, view_.colours.face);
    const std::vector<int> columns = view_.layout.ColumnsIn(area);
    PaintRows(view_.layout.ScrolledRowsIn(area), columns);
    PaintRows(view_.layout.FixedRowsIn(area), columns);
    PaintCurrentFrame();
}

void GridPainter::PaintRows(const GridRows& rows, const std::vector<int>& columns) const {
    if (rows.first >= rows.end || columns.empty()) {
        return;
    }
    const GridRect first = view_.layout.CellRect({rows.first, columns.front()});
    const GridRect last = view_.layout.CellRect({rows.end - 1, columns.back()});
    Fill({first.left, first.top, last.right, last.bottom}, view_.colours.line);
    for (int row = rows.first; row < rows.end; ++row) {
        for (const int column : columns) {
            PaintCell({row, column});
        }
    }
}

void GridPainter::PaintCell(GridPosition position) const {
    const CGridCellBase* const cell = view_.cells.CellAt(position.row, position.column);
    if (cell == nullptr) {
        return;
    }
    const GridRect whole = view_.layout.CellRect(position);
    const GridRect inside = WithoutLine(whole);
    const GridRect visible = Intersection(inside, view_.layout.VisiblePart(position));
    const CellColours colours = ColoursOf(position, *cell);
    SetTextColor(canvas_, colours.text);
    SetBkColor(canvas_, colours.back);
    const GridCellKind kind = view_.cells.GetCellType(position.row, position.column);
    if (kind == GridCellKind::Text && !IsHeading(position)) {
        return PaintText(*cell, WithPadding(inside), visible);
    }
    FillGround(visible);
    const int beforeClip = SaveDC(canvas_);
    IntersectClipRect(canvas_, visible.left, visible.top, visible.right, visible.bottom);
    PaintDecorated(position, inside, *cell, kind);
    RestoreDC(canvas_, beforeClip);
}

void GridPainter::PaintDecorated(GridPosition position, const GridRect& inside,
                                 const CGridCellBase& cell, GridCellKind kind) const {
    GridRect room = WithPadding(inside);
    if (IsHeading(position)) {
        RECT edge = ToRect(inside);
        DrawEdge(canvas_, &edge, BDR_RAISEDINNER, BF_RECT);
        const GridRect ground = Shrunk(inside, 1);
        return PaintText(cell, room, ground);
    }
    if (kind == GridCellKind::Check) {
        room.left += view_.metrics.checkBox + view_.metrics.padding;
    } else if (!cell.IsReadOnly()) {
        room.right = ArrowRect(inside, view_.metrics).left;
    }
    PaintText(cell, room, inside);
    if (kind == GridCellKind::Check) {
        PaintCheckBox(inside, cell);
    } else if (!cell.IsReadOnly()) {
        PaintArrow(inside, GetTextColor(canvas_));
    }
}

void GridPainter::PaintCheckBox(const GridRect& inside, const CGridCellBase& cell) const {
    RECT box = ToRect(CheckBoxRect(inside, view_.metrics));
    const bool isInactive = !view_.isEnabled || cell.IsReadOnly();
    const unsigned state = DFCS_BUTTONCHECK | (cell.IsChecked() ? DFCS_CHECKED : 0U) |
                           (isInactive ? DFCS_INACTIVE : 0U);
    DrawFrameControl(canvas_, &box, DFC_BUTTON, state);
}

void GridPainter::PaintArrow(const GridRect& inside, Colour colour) const {
    const GridRect room = ArrowRect(inside, view_.metrics);
    const int rows = view_.metrics.arrow / 4;
    const int middle = Centred(room.left, room.right, 1);
    const int top = Centred(room.top, room.bottom, rows);
    for (int row = 0; row < rows; ++row) {
        const int half = rows - 1 - row;
        Fill({middle - half, top + row, middle + half + 1, top + row + 1}, colour);
    }
}

/// Fills the ground as well.
void GridPainter::PaintText(const CGridCellBase& cell, const GridRect& room,
                            const GridRect& ground) const {
    if (cell.Text().empty()) {
        return FillGround(ground);
    }
    if (cell.Font() != nullptr) {
        SelectObject(canvas_, cell.Font());
    }
    if ((cell.Format() & kGridTextSingleLine) != 0) {
        PaintLine(cell, room, ground);
    } else {
        const UINT sides = cell.Format() & (kGridTextCentred | kGridTextRight);
        PaintLines(cell.Text(), room, ground, sides | DT_WORDBREAK);
    }
    if (cell.Font() != nullptr) {
        SelectObject(canvas_, view_.font);
    }
}

void GridPainter::PaintLine(const CGridCellBase& cell, const GridRect& room,
                            const GridRect& ground) const {
    const int length = VisibleLength(cell.Text(), room);
    SIZE size = {};
    GetTextExtentPoint32A(canvas_, cell.Text().data(), length, &size);
    const bool isCentred = (cell.Format() & kGridTextCentredVertically) != 0;
    const int top = isCentred ? Centred(room.top, room.bottom, size.cy) : room.top;
    if (size.cx > room.right - room.left) {
        const std::string_view visible(cell.Text().data(), static_cast<std::size_t>(length));
        return PaintLines(visible, {room.left, top, room.right, top + size.cy}, ground,
                          DT_SINGLELINE | DT_END_ELLIPSIS);
    }
    const RECT filled = ToRect(ground);
    ExtTextOutA(canvas_, TextLeft(room, cell.Format(), size.cx), top, ETO_OPAQUE | ETO_CLIPPED,
                &filled, cell.Text().data(), static_cast<UINT>(length), nullptr);
}

/// Slower than a single call, which most texts need.
void GridPainter::PaintLines(std::string_view text, const GridRect& room, const GridRect& ground,
                             UINT format) const {
    FillGround(ground);
    const int beforeClip = SaveDC(canvas_);
    IntersectClipRect(canvas_, ground.left, ground.top, ground.right, ground.bottom);
    SetBkMode(canvas_, TRANSPARENT);
    RECT lines = ToRect(room);
    DrawTextA(canvas_, text.data(), static_cast<int>(text.size()), &lines, format | DT_NOPREFIX);
    RestoreDC(canvas_, beforeClip);
}

void GridPainter::PaintCurrentFrame() const {
    const GridPosition current = view_.selection.Current();
    if (current.IsNone() || !view_.isEnabled) {
        return;
    }
    const GridRect visible = view_.layout.VisiblePart(current);
    const GridRect edge = WithoutLine(view_.layout.CellRect(current));
    const GridRect hole = Shrunk(edge, view_.isFocused ? view_.metrics.frame : kGridLine);
    const GridRect sides[] = {{edge.left, edge.top, edge.right, hole.top},
                              {edge.left, hole.bottom, edge.right, edge.bottom},
                              {edge.left, hole.top, hole.left, hole.bottom},
                              {hole.right, hole.top, edge.right, hole.bottom}};
    for (const GridRect& side : sides) {
        Fill(Intersection(side, visible), view_.colours.highlight);
    }
}

void GridPainter::Fill(const GridRect& rect, Colour colour) const {
    SetBkColor(canvas_, colour);
    FillGround(rect);
}

void GridPainter::FillGround(const GridRect& rect) const {
    const RECT filled = ToRect(rect);
    ExtTextOutA(canvas_, 0, 0, ETO_OPAQUE, &filled, nullptr, 0, nullptr);
}

GridRect GridPainter::WithPadding(const GridRect& inside) const {
    return {inside.left + view_.metrics.padding, inside.top, inside.right - view_.metrics.padding,
            inside.bottom};
}

bool GridPainter::IsHeading(GridPosition position) const {
    return view_.layout.IsFixed(position);
}

bool GridPainter::IsSelected(GridPosition position) const {
    return view_.selection.IsRange() && view_.selection.Contains(position);
}

GridPainter::CellColours GridPainter::ColoursOf(GridPosition position,
                                                const CGridCellBase& cell) const {
    const GridColours& system = view_.colours;
    if (!view_.isEnabled) {
        return {system.face, system.greyText};
    }
    if (IsSelected(position)) {
        return {system.highlight, system.highlightText};
    }
    CellColours colours = {cell.BackColour(), cell.TextColour()};
    if (colours.back == kDefaultColour) {
        colours.back = IsHeading(position) ? system.face : system.window;
    }
    if (colours.text == kDefaultColour) {
        colours.text = IsHeading(position) ? system.faceText : system.windowText;
    }
    return colours;
}

}  // namespace orvell::ui
