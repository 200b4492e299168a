#include "ui/grid/grid_selection.h"

#include <gtest/gtest.h>

namespace orvell::ui {
namespace {

using Position = GridPosition;

constexpr GridRange kSelectionRange = {
    .firstRow = 1, .endRow = 21, .firstColumn = 1, .endColumn = 4, .pageRows = 5};
constexpr GridRange kNothing = {.firstRow = 1, .endRow = 1, .firstColumn = 1, .endColumn = 2};

GridSelection At(Position position) {
    GridSelection selection;
    selection.MoveTo(position, kSelectionRange);
    return selection;
}

TEST(GridSelection, HasNoCellAtFirst) {
    const GridSelection selection;
    EXPECT_TRUE(selection.Current().IsNone());
    EXPECT_FALSE(selection.IsRange());
    EXPECT_FALSE(selection.Contains({-1, -1}));
    EXPECT_FALSE(selection.Contains({1, 1}));
}

TEST(GridSelection, MovesAmongTheValueCellsOnly) {
    EXPECT_EQ(At({5, 0}).Current(), (Position{5, 1}));
    EXPECT_EQ(At({0, 3}).Current(), (Position{1, 3}));
    EXPECT_EQ(At({99, 99}).Current(), (Position{20, 3}));
}

TEST(GridSelection, ExtendsDownAndUp) {
    GridSelection selection = At({5, 2});
    selection.Move(GridMovement::Down, true, kSelectionRange);
    selection.Move(GridMovement::Down, true, kSelectionRange);
    EXPECT_TRUE(selection.IsRange());
    EXPECT_EQ(selection.Current(), (Position{7, 2}));
    EXPECT_EQ(selection.FirstRow(), 5);
    EXPECT_EQ(selection.LastRow(), 7);
    selection.Move(GridMovement::FirstRow, true, kSelectionRange);
    EXPECT_EQ(selection.FirstRow(), 1);
    EXPECT_EQ(selection.LastRow(), 5);
}

TEST(GridSelection, ContainsTheRangeInItsColumn) {
    GridSelection selection = At({5, 2});
    selection.ExtendTo(8, kSelectionRange);
    EXPECT_TRUE(selection.Contains({5, 2}));
    EXPECT_TRUE(selection.Contains({8, 2}));
    EXPECT_FALSE(selection.Contains({4, 2}));
    EXPECT_FALSE(selection.Contains({9, 2}));
    EXPECT_FALSE(selection.Contains({6, 1}));
}

TEST(GridSelection, AStepWithoutShiftGivesTheRangeUp) {
    GridSelection selection = At({5, 2});
    selection.ExtendTo(8, kSelectionRange);
    selection.Move(GridMovement::Down, false, kSelectionRange);
    EXPECT_FALSE(selection.IsRange());
    EXPECT_EQ(selection.Current(), (Position{9, 2}));
}

TEST(GridSelection, AStepAsideGivesTheRangeUp) {
    GridSelection selection = At({5, 2});
    selection.ExtendTo(8, kSelectionRange);
    selection.Move(GridMovement::Left, true, kSelectionRange);
    EXPECT_FALSE(selection.IsRange());
    EXPECT_EQ(selection.Current(), (Position{8, 1}));
}

TEST(GridSelection, AStepAsideAtTheEdgeKeepsTheRange) {
    GridSelection selection = At({5, 1});
    selection.ExtendTo(8, kSelectionRange);
    selection.Move(GridMovement::Left, true, kSelectionRange);
    EXPECT_TRUE(selection.IsRange());
}

TEST(GridSelection, StaysWithinWhatIsLeft) {
    GridSelection selection = At({18, 3});
    selection.ExtendTo(20, kSelectionRange);
    GridRange fewer = kSelectionRange;
    fewer.endRow = 19;
    fewer.endColumn = 3;
    selection.KeepWithin(fewer);
    EXPECT_EQ(selection.Current(), (Position{18, 2}));
    EXPECT_EQ(selection.FirstRow(), 18);
    selection.KeepWithin(kNothing);
    EXPECT_TRUE(selection.Current().IsNone());
    EXPECT_FALSE(selection.IsRange());
}

TEST(GridSelection, TheFirstCellBecomesCurrentWhenNoneWas) {
    GridSelection selection;
    selection.KeepWithin(kSelectionRange);
    EXPECT_EQ(selection.Current(), (Position{1, 1}));
    EXPECT_FALSE(selection.IsRange());
}

TEST(GridSelection, ExtendingWithoutACurrentCellBeginsAtTheFirst) {
    GridSelection selection;
    selection.ExtendTo(4, kSelectionRange);
    EXPECT_EQ(selection.FirstRow(), 1);
    EXPECT_EQ(selection.LastRow(), 4);
}

}  // namespace
}  // namespace orvell::ui
