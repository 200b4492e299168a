#include "ui/grid/grid_layout.h"

#include <gtest/gtest.h>

#include <limits>

#include "unit/ui/grid/filled_model.h"

namespace orvell::ui {
namespace {

using Columns = std::vector<int>;

constexpr int kHighest = std::numeric_limits<int>::max();

GridModel Shape(int rows, int columns, int fixedRows, int fixedColumns) {
    GridModel model;
    model.SetColumnCount(columns);
    model.SetRowCount(rows);
    model.SetFixedRowCount(fixedRows);
    model.SetFixedColumnCount(fixedColumns);
    return model;
}

/// Rows of 20 pixels in a client area of 250 x 110: the heading and four rows and a half.
GridLayout Layout(int rows, int columns = 2, int fixedColumns = 0) {
    GridLayout layout;
    layout.SetShape(Shape(rows, columns, 1, fixedColumns));
    layout.SetRowHeight(20);
    layout.SetClientSize(250, 110);
    return layout;
}

TEST(GridLayout, PlacesCells) {
    GridLayout layout = Layout(100);
    layout.SetColumnWidth(0, 70);
    EXPECT_EQ(layout.CellRect({0, 0}), (GridRect{0, 0, 70, 20}));
    EXPECT_EQ(layout.CellRect({2, 1}), (GridRect{70, 40, 170, 60}));
    EXPECT_EQ(layout.ContentWidth(), 170);
    EXPECT_EQ(layout.ContentHeight(), 2000);
}

TEST(GridLayout, ScrollsRowsBelowTheHeading) {
    GridLayout layout = Layout(100);
    EXPECT_EQ(layout.PageRows(), 4);
    EXPECT_EQ(layout.LargestScrolledRows(), 95);
    EXPECT_TRUE(layout.ScrollToRows(10));
    EXPECT_FALSE(layout.ScrollToRows(10));
    EXPECT_EQ(layout.TopRow(), 11);
    EXPECT_EQ(layout.CellRect({0, 0}).top, 0);
    EXPECT_EQ(layout.CellRect({11, 0}).top, 20);
    EXPECT_TRUE(layout.VisiblePart({10, 0}).IsEmpty()) << "below the heading";
    EXPECT_TRUE(layout.ScrollToRows(1000));
    EXPECT_EQ(layout.ScrolledRows(), 95);
    EXPECT_TRUE(layout.ScrollToRows(-1));
    EXPECT_EQ(layout.ScrolledRows(), 0);
}

TEST(GridLayout, ScrollsColumnsBesideTheFixedOnes) {
    GridLayout layout = Layout(100, 5, 1);
    EXPECT_EQ(layout.LargestScrolledPixels(), 250);
    layout.ScrollToPixels(30);
    EXPECT_EQ(layout.CellRect({1, 0}).left, 0);
    EXPECT_EQ(layout.CellRect({1, 1}).left, 70);
    EXPECT_EQ(layout.VisiblePart({1, 1}), (GridRect{100, 20, 170, 40}));
    EXPECT_EQ(layout.CellAtPoint(99, 25), (GridPosition{1, 0}));
    EXPECT_EQ(layout.CellAtPoint(100, 25), (GridPosition{1, 1}));
    EXPECT_EQ(layout.CellAtPoint(170, 25), (GridPosition{1, 2}));
}

TEST(GridLayout, RevealsACellByTheShortestWay) {
    GridLayout layout = Layout(100, 5, 1);
    EXPECT_FALSE(layout.Reveal({4, 1})) << "can be seen";
    EXPECT_TRUE(layout.Reveal({5, 1})) << "is cut by the lower edge";
    EXPECT_EQ(layout.TopRow(), 2);
    EXPECT_TRUE(layout.Reveal({50, 1}));
    EXPECT_EQ(layout.TopRow(), 47);
    EXPECT_TRUE(layout.Reveal({40, 1}));
    EXPECT_EQ(layout.TopRow(), 40);
    EXPECT_TRUE(layout.Reveal({40, 3}));
    EXPECT_EQ(layout.ScrolledPixels(), 150);
    EXPECT_TRUE(layout.Reveal({40, 1}));
    EXPECT_EQ(layout.ScrolledPixels(), 0);
    EXPECT_FALSE(layout.Reveal({0, 0})) << "fixed cells are always there";
    EXPECT_FALSE(layout.Reveal({100, 7})) << "no cell";
}

TEST(GridLayout, FindsTheCellAtAPoint) {
    GridLayout layout = Layout(4);
    EXPECT_EQ(layout.CellAtPoint(0, 0), (GridPosition{0, 0}));
    EXPECT_EQ(layout.CellAtPoint(199, 79), (GridPosition{3, 1}));
    EXPECT_FALSE(layout.CellAtPoint(200, 10).has_value()) << "right of the cells";
    EXPECT_FALSE(layout.CellAtPoint(10, 80).has_value()) << "below the rows";
    EXPECT_FALSE(layout.CellAtPoint(-1, 10).has_value());
    EXPECT_FALSE(layout.CellAtPoint(10, 200).has_value());
}

TEST(GridLayout, PassesOverColumnsWithoutWidth) {
    GridLayout layout = Layout(4, 3);
    layout.SetColumnWidth(1, 0);
    EXPECT_EQ(layout.CellAtPoint(99, 10), (GridPosition{0, 0}));
    EXPECT_EQ(layout.CellAtPoint(100, 10), (GridPosition{0, 2}));
    EXPECT_EQ(layout.ColumnsIn({0, 0, 250, 110}), (Columns{0, 2}));
}

TEST(GridLayout, FindsTheRowThatADragMeans) {
    GridLayout layout = Layout(100);
    layout.ScrollToRows(10);
    EXPECT_EQ(layout.RowNearPoint(20), 11);
    EXPECT_EQ(layout.RowNearPoint(59), 12);
    EXPECT_EQ(layout.RowNearPoint(19), 10) << "on the heading: one row up";
    EXPECT_EQ(layout.RowNearPoint(-500), 10);
    EXPECT_EQ(layout.RowNearPoint(500), 15) << "below the window: one row down";
}

TEST(GridLayout, FindsBordersOfColumns) {
    GridLayout layout = Layout(4, 3);
    EXPECT_EQ(layout.ColumnBorderAt(95, 4), -1);
    EXPECT_EQ(layout.ColumnBorderAt(96, 4), 0);
    EXPECT_EQ(layout.ColumnBorderAt(103, 4), 0);
    EXPECT_EQ(layout.ColumnBorderAt(104, 4), -1);
    layout.SetColumnWidth(1, 0);
    EXPECT_EQ(layout.ColumnBorderAt(100, 4), 1) << "so that a closed column can be opened";
}

TEST(GridLayout, FindsNoBordersUnderFixedColumns) {
    GridLayout layout = Layout(4, 4, 1);
    layout.ScrollToPixels(100);
    EXPECT_EQ(layout.ColumnBorderAt(100, 4), 1) << "just at the edge";
    layout.ScrollToPixels(101);
    EXPECT_EQ(layout.ColumnBorderAt(100, 4), 0);
    EXPECT_EQ(layout.ColumnBorderAt(199, 4), 2);

    GridLayout closed = Layout(4, 3);
    closed.SetColumnWidth(0, 0);
    EXPECT_EQ(closed.ColumnBorderAt(0, 4), 0) << "so that the first column can be opened";
    EXPECT_EQ(closed.VisiblePart({1, 0}), GridRect()) << "nothing of it is seen";
}

TEST(GridLayout, ColumnsThatAreNotThereGetNoWidth) {
    GridLayout layout = Layout(4, 2);
    for (const int column : {-1, 2, 3}) {
        layout.SetColumnWidth(column, 7);
        EXPECT_EQ(layout.ContentWidth(), 200) << column;
    }
    layout.SetShape(Shape(4, 3, 1, 0));
    EXPECT_EQ(layout.ContentWidth(), 300);
}

TEST(GridLayout, TellsWhatAnAreaShows) {
    GridLayout layout = Layout(100);
    layout.ScrollToRows(10);
    EXPECT_EQ(layout.FixedRowsIn({0, 0, 250, 110}).end, 1);
    EXPECT_EQ(layout.ScrolledRowsIn({0, 0, 250, 110}).first, 11);
    EXPECT_EQ(layout.ScrolledRowsIn({0, 0, 250, 110}).end, 16);
    EXPECT_EQ(layout.ScrolledRowsIn({0, 40, 250, 61}).first, 12);
    EXPECT_EQ(layout.ScrolledRowsIn({0, 40, 250, 61}).end, 14);
    const GridRows none = layout.ScrolledRowsIn({0, 0, 250, 20});
    EXPECT_EQ(none.first, none.end) << "the heading alone";
    const GridRows noHeading = layout.FixedRowsIn({0, 20, 250, 110});
    EXPECT_EQ(noHeading.first, noHeading.end);
    EXPECT_EQ(layout.ColumnsIn({0, 0, 100, 110}), Columns{0});
    EXPECT_EQ(layout.ColumnsIn({99, 0, 101, 110}), (Columns{0, 1}));
    EXPECT_EQ(layout.ColumnsIn({200, 0, 250, 110}), Columns());
}

TEST(GridLayout, TheLastPageEndsWithTheLastRow) {
    GridLayout layout = Layout(100);
    layout.ScrollToRows(kHighest);
    EXPECT_EQ(layout.ScrolledRowsIn({0, 0, 250, 110}).end, 100);
    EXPECT_EQ(layout.CellRect({99, 0}).bottom, 100);
}

TEST(GridLayout, ScrollsBackWhenRowsGo) {
    GridLayout layout = Layout(100);
    layout.ScrollToRows(90);
    layout.SetShape(Shape(11, 2, 1, 0));
    EXPECT_EQ(layout.ScrolledRows(), 6);
    layout.SetClientSize(250, 1000);
    EXPECT_EQ(layout.ScrolledRows(), 0);
}

TEST(GridLayout, LivesWithoutRoom) {
    GridLayout layout = Layout(100);
    layout.SetClientSize(0, 0);
    EXPECT_EQ(layout.PageRows(), 1);
    EXPECT_FALSE(layout.CellAtPoint(0, 0).has_value());
    EXPECT_TRUE(layout.VisiblePart({0, 0}).IsEmpty());
    EXPECT_TRUE(layout.ColumnsIn({0, 0, 0, 0}).empty());
    layout.SetClientSize(-5, -5);
    EXPECT_EQ(layout.ClientWidth(), 0);
    layout.SetRowHeight(0);
    EXPECT_EQ(layout.RowHeight(), 1);
}

TEST(GridLayout, LivesWithoutCells) {
    GridLayout layout = Layout(0, 0);
    EXPECT_EQ(layout.ContentWidth(), 0);
    EXPECT_EQ(layout.LargestScrolledRows(), 0);
    EXPECT_FALSE(layout.CellAtPoint(0, 0).has_value());
    EXPECT_EQ(layout.ColumnBorderAt(0, 4), -1);
    EXPECT_EQ(layout.ScrolledRowsIn({0, 0, 250, 110}).end, 0);
}

TEST(GridLayout, MoreFixedRowsThanRows) {
    GridLayout layout;
    layout.SetShape(Shape(2, 1, 9, 9));
    layout.SetRowHeight(20);
    layout.SetClientSize(100, 100);
    EXPECT_EQ(layout.ScrollableRows(), 0);
    EXPECT_EQ(layout.FixedRowsIn({0, 0, 100, 100}).end, 2);
    EXPECT_EQ(layout.FixedWidth(), 100);
}

TEST(GridLayout, CountsBeyondMillionsOfRows) {
    GridModel model;
    model.SetColumnCount(1);
    model.SetRowCount(1'000'000);
    GridLayout layout;
    layout.SetShape(model);
    layout.SetRowHeight(5000);
    layout.SetClientSize(100, 10000);
    EXPECT_EQ(layout.ContentHeight(), 1'000'000'000) << "limited";
    EXPECT_GT(layout.CellRect({999'999, 0}).top, 900'000'000);
    layout.Reveal({999'999, 0});
    EXPECT_EQ(layout.CellRect({999'999, 0}).bottom, 10000);
    layout.SetColumnWidth(0, kHighest);
    EXPECT_LE(layout.ContentWidth(), 1'000'000'000);
}

}  // namespace
}  // namespace orvell::ui
