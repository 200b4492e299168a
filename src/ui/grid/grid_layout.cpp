#include "ui/grid/grid_layout.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace orvell::ui {
namespace {

/// Far outside of every window, with room to add to it.
constexpr std::int64_t kFarAway = 1'000'000'000;

int Limited(std::int64_t pixels) {
    return static_cast<int>(std::clamp(pixels, -kFarAway, kFarAway));
}

std::size_t IndexOf(int column) {
    return static_cast<std::size_t>(column);
}

}  // namespace

GridRect Intersection(const GridRect& one, const GridRect& other) {
    const GridRect both = {std::max(one.left, other.left), std::max(one.top, other.top),
                           std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
    return both.IsEmpty() ? GridRect() : both;
}

void GridLayout::SetShape(const GridModel& model) {
    rowCount_ = model.GetRowCount();
    columnCount_ = model.GetColumnCount();
    fixedRowCount_ = std::min(model.GetFixedRowCount(), rowCount_);
    fixedColumnCount_ = std::min(model.GetFixedColumnCount(), columnCount_);
    UpdateEdges();
}

void GridLayout::SetColumnWidth(int column, int pixels) {
    if (column < 0 || column >= columnCount_) {
        return;
    }
    widths_[IndexOf(column)] = std::clamp(pixels, 0, Limited(kFarAway));
    UpdateEdges();
}

void GridLayout::SetRowHeight(int pixels) {
    rowHeight_ = std::max(pixels, 1);
    LimitScrolling();
}

void GridLayout::SetClientSize(int width, int height) {
    clientWidth_ = std::max(width, 0);
    clientHeight_ = std::max(height, 0);
    LimitScrolling();
}

int GridLayout::ColumnWidth(int column) const {
    return column < 0 || column >= columnCount_ ? 0 : widths_[IndexOf(column)];
}

int GridLayout::ContentWidth() const {
    return edges_.back();
}

int GridLayout::ContentHeight() const {
    return Limited(std::int64_t{rowCount_} * rowHeight_);
}

int GridLayout::FixedHeight() const {
    return Limited(std::int64_t{fixedRowCount_} * rowHeight_);
}

int GridLayout::FixedWidth() const {
    return edges_[IndexOf(fixedColumnCount_)];
}

int GridLayout::LargestScrolledRows() const {
    return std::max(ScrollableRows() - PageRows(), 0);
}

int GridLayout::LargestScrolledPixels() const {
    return std::max(ContentWidth() - clientWidth_, 0);
}

int GridLayout::PageRows() const {
    return std::max(WholeScrolledRows(), 1);
}

bool GridLayout::ScrollToRows(int rows) {
    const int limited = std::clamp(rows, 0, LargestScrolledRows());
    return std::exchange(scrolledRows_, limited) != limited;
}

bool GridLayout::ScrollToPixels(int pixels) {
    const int limited = std::clamp(pixels, 0, LargestScrolledPixels());
    return std::exchange(scrolledPixels_, limited) != limited;
}

bool GridLayout::Reveal(GridPosition position) {
    bool hasMoved = false;
    if (!IsFixedRow(position.row) && position.row < rowCount_) {
        const int row = position.row - fixedRowCount_;
        const int lowest = row - PageRows() + 1;
        hasMoved = ScrollToRows(std::clamp(scrolledRows_, std::min(lowest, row), row));
    }
    if (!IsFixedColumn(position.column) && position.column < columnCount_) {
        const int left = edges_[IndexOf(position.column)] - FixedWidth();
        const int right = edges_[IndexOf(position.column) + 1] - clientWidth_;
        hasMoved |= ScrollToPixels(std::clamp(scrolledPixels_, std::min(left, right), left));
    }
    return hasMoved;
}

GridRect GridLayout::CellRect(GridPosition position) const {
    const int top = RowTop(position.row);
    const int left = ColumnLeft(position.column);
    return {left, top, left + ColumnWidth(position.column), top + rowHeight_};
}

GridRect GridLayout::VisiblePart(GridPosition position) const {
    const GridRect area = {IsFixedColumn(position.column) ? 0 : FixedWidth(),
                           IsFixedRow(position.row) ? 0 : FixedHeight(), clientWidth_,
                           clientHeight_};
    return Intersection(CellRect(position), area);
}

std::optional<GridPosition> GridLayout::CellAtPoint(int x, int y) const {
    if (!GridRect{0, 0, clientWidth_, clientHeight_}.Contains(x, y)) {
        return std::nullopt;
    }
    const int inContent = x < FixedWidth() ? x : x + scrolledPixels_;
    const auto edge = std::upper_bound(edges_.begin(), edges_.end(), inContent);
    const int row = y / rowHeight_ + (y < FixedHeight() ? 0 : scrolledRows_);
    if (edge == edges_.end() || row >= rowCount_) {
        return std::nullopt;
    }
    return GridPosition{row, static_cast<int>(edge - edges_.begin()) - 1};
}

int GridLayout::RowNearPoint(int y) const {
    const int below = y - FixedHeight();
    const int rows = below < 0 ? -1 : below / rowHeight_;
    return TopRow() + std::min(rows, WholeScrolledRows());
}

int GridLayout::ColumnBorderAt(int x, int reach) const {
    for (int column = columnCount_ - 1; column >= 0; --column) {
        const int border = ColumnLeft(column) + ColumnWidth(column);
        const bool isCovered = !IsFixedColumn(column) && border < FixedWidth();
        if (!isCovered && x >= border - reach && x < border + reach) {
            return column;
        }
    }
    return -1;
}

GridRows GridLayout::FixedRowsIn(const GridRect& area) const {
    if (area.IsEmpty() || area.bottom <= 0) {
        return {};
    }
    const int end = (area.bottom - 1) / rowHeight_ + 1;
    return {std::min(std::max(area.top, 0) / rowHeight_, fixedRowCount_),
            std::min(end, fixedRowCount_)};
}

GridRows GridLayout::ScrolledRowsIn(const GridRect& area) const {
    const int top = std::max(area.top - FixedHeight(), 0);
    const int bottom = area.bottom - FixedHeight();
    if (area.IsEmpty() || bottom <= 0) {
        return {TopRow(), TopRow()};
    }
    const std::int64_t first = std::int64_t{TopRow()} + top / rowHeight_;
    const std::int64_t end = std::int64_t{TopRow()} + (bottom - 1) / rowHeight_ + 1;
    return {static_cast<int>(std::min<std::int64_t>(first, rowCount_)),
            static_cast<int>(std::min<std::int64_t>(end, rowCount_))};
}

std::vector<int> GridLayout::ColumnsIn(const GridRect& area) const {
    std::vector<int> columns;
    for (int column = 0; column < columnCount_; ++column) {
        const int left = ColumnLeft(column);
        const int visibleLeft = IsFixedColumn(column) ? left : std::max(left, FixedWidth());
        const int right = std::min(left + ColumnWidth(column), area.right);
        if (std::max(visibleLeft, area.left) < right) {
            columns.push_back(column);
        }
    }
    return columns;
}

int GridLayout::WholeScrolledRows() const {
    return std::max(clientHeight_ - FixedHeight(), 0) / rowHeight_;
}

int GridLayout::RowTop(int row) const {
    const std::int64_t above = IsFixedRow(row) ? row : std::int64_t{row} - scrolledRows_;
    return Limited(above * rowHeight_);
}

int GridLayout::ColumnLeft(int column) const {
    if (column < 0 || column >= columnCount_) {
        return ContentWidth();
    }
    return edges_[IndexOf(column)] - (IsFixedColumn(column) ? 0 : scrolledPixels_);
}

void GridLayout::UpdateEdges() {
    widths_.resize(IndexOf(columnCount_), kUsualColumnWidth);
    edges_.assign(1, 0);
    for (const int width : widths_) {
        edges_.push_back(Limited(std::int64_t{edges_.back()} + width));
    }
    LimitScrolling();
}

void GridLayout::LimitScrolling() {
    ScrollToRows(scrolledRows_);
    ScrollToPixels(scrolledPixels_);
}

}  // namespace orvell::ui
