#include "ui/grid/grid_movement.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvell::ui {
namespace {

using Position = GridPosition;

/// Rows 1 to 20, columns 1 to 3.
constexpr GridRange kMovementRange = {
    .firstRow = 1, .endRow = 21, .firstColumn = 1, .endColumn = 4, .pageRows = 5};

struct Step {
    GridMovement movement;
    Position from;
    Position to;
};

class GridMovementTest : public testing::TestWithParam<Step> {};

TEST_P(GridMovementTest, Leads) {
    const Step& step = GetParam();
    EXPECT_EQ(Moved(step.from, step.movement, kMovementRange), step.to);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, GridMovementTest,
    testing::Values(
        Step{GridMovement::Up, {5, 2}, {4, 2}}, Step{GridMovement::Up, {1, 2}, {1, 2}},
        Step{GridMovement::Down, {5, 2}, {6, 2}}, Step{GridMovement::Down, {20, 2}, {20, 2}},
        Step{GridMovement::Left, {5, 2}, {5, 1}}, Step{GridMovement::Left, {5, 1}, {5, 1}},
        Step{GridMovement::Right, {5, 2}, {5, 3}}, Step{GridMovement::Right, {5, 3}, {5, 3}},
        Step{GridMovement::PageUp, {12, 2}, {7, 2}}, Step{GridMovement::PageUp, {3, 2}, {1, 2}},
        Step{GridMovement::PageDown, {12, 2}, {17, 2}},
        Step{GridMovement::PageDown, {18, 2}, {20, 2}},
        Step{GridMovement::FirstRow, {12, 2}, {1, 2}},
        Step{GridMovement::LastRow, {12, 2}, {20, 2}},
        Step{GridMovement::FirstColumn, {12, 2}, {12, 1}},
        Step{GridMovement::LastColumn, {12, 2}, {12, 3}},
        Step{GridMovement::Next, {12, 2}, {12, 3}}, Step{GridMovement::Next, {12, 3}, {13, 1}},
        Step{GridMovement::Next, {20, 3}, {20, 3}}, Step{GridMovement::Previous, {12, 2}, {12, 1}},
        Step{GridMovement::Previous, {12, 1}, {11, 3}},
        Step{GridMovement::Previous, {1, 1}, {1, 1}}));

TEST(GridMovement, BeginsAtTheNearestCell) {
    EXPECT_EQ(Moved({}, GridMovement::Down, kMovementRange), (Position{2, 1}));
    EXPECT_EQ(Moved({100, 100}, GridMovement::Up, kMovementRange), (Position{19, 3}));
}

TEST(GridMovement, LeadsNowhereWithoutCells) {
    const GridRange empty = {.firstRow = 1, .endRow = 1, .firstColumn = 1, .endColumn = 2};
    EXPECT_TRUE(Moved({1, 1}, GridMovement::Down, empty).IsNone());
    const GridRange noColumn = {.firstRow = 0, .endRow = 5, .firstColumn = 1, .endColumn = 1};
    EXPECT_TRUE(Moved({1, 1}, GridMovement::Down, noColumn).IsNone());
}

TEST(GridMovement, HugePagesEndAtTheEdges) {
    GridRange range = kMovementRange;
    range.pageRows = std::numeric_limits<int>::max();
    EXPECT_EQ(Moved({12, 2}, GridMovement::PageDown, range), (Position{20, 2}));
    EXPECT_EQ(Moved({12, 2}, GridMovement::PageUp, range), (Position{1, 2}));
}

struct Key {
    unsigned key;
    GridMovement alone;
    GridMovement withControl;
};

class GridKeyTest : public testing::TestWithParam<Key> {};

TEST_P(GridKeyTest, Moves) {
    const Key& row = GetParam();
    EXPECT_EQ(MovementOfKey(row.key, false), row.alone);
    EXPECT_EQ(MovementOfKey(row.key, true), row.withControl);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, GridKeyTest,
    testing::Values(Key{0x26, GridMovement::Up, GridMovement::FirstRow},
                    Key{0x28, GridMovement::Down, GridMovement::LastRow},
                    Key{0x25, GridMovement::Left, GridMovement::FirstColumn},
                    Key{0x27, GridMovement::Right, GridMovement::LastColumn},
                    Key{0x21, GridMovement::PageUp, GridMovement::FirstRow},
                    Key{0x22, GridMovement::PageDown, GridMovement::LastRow},
                    Key{0x24, GridMovement::FirstColumn, GridMovement::FirstRow},
                    Key{0x23, GridMovement::LastColumn, GridMovement::LastRow}));

TEST(GridMovement, OtherKeysDoNotMove) {
    EXPECT_FALSE(MovementOfKey('A', false).has_value());
    EXPECT_FALSE(MovementOfKey(0x0D, true).has_value());
}

}  // namespace
}  // namespace orvell::ui
