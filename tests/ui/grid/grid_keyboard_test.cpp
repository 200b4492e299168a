#include <gtest/gtest.h>

#include "ui/grid/grid_dialog.h"

namespace orvell::ui {
namespace {

using test::GridDialog;
using Position = GridPosition;

TEST(GridKeyboard, ArrowsMoveTheCurrentCell) {
    GridDialog dialog;
    EXPECT_EQ(dialog.Current(), (Position{1, 1}));
    dialog.Press(VK_DOWN);
    dialog.Press(VK_DOWN);
    EXPECT_EQ(dialog.Current(), (Position{3, 1}));
    dialog.Press(VK_UP);
    EXPECT_EQ(dialog.Current(), (Position{2, 1}));
    dialog.Press(VK_LEFT);
    EXPECT_EQ(dialog.Current(), (Position{2, 1})) << "names are no values";
    dialog.Press(VK_RIGHT);
    EXPECT_EQ(dialog.Current(), (Position{2, 1}));
}

TEST(GridKeyboard, ControlLeadsToTheFirstAndLastRow) {
    GridDialog dialog;
    for (const WPARAM key : {VK_DOWN, VK_END, VK_NEXT}) {
        dialog.Press(key, {VK_CONTROL});
        EXPECT_EQ(dialog.Current(), (Position{20, 1}));
        dialog.Press(VK_HOME, {VK_CONTROL});
        EXPECT_EQ(dialog.Current(), (Position{1, 1}));
    }
    dialog.Press(VK_END, {VK_CONTROL});
    dialog.Press(VK_UP, {VK_CONTROL});
    EXPECT_EQ(dialog.Current(), (Position{1, 1}));
}

TEST(GridKeyboard, PageKeysMoveByWhatIsSeen) {
    GridDialog dialog(100);
    const int page = dialog.Grid().Layout().PageRows();
    ASSERT_GT(page, 3);
    dialog.Press(VK_NEXT);
    EXPECT_EQ(dialog.Current(), (Position{1 + page, 1}));
    dialog.Press(VK_NEXT);
    dialog.Press(VK_PRIOR);
    EXPECT_EQ(dialog.Current(), (Position{1 + page, 1}));
}

TEST(GridKeyboard, TypingReplacesTheTextAndEnterTakesItDown) {
    GridDialog dialog;
    dialog.Type("new");
    ASSERT_NE(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.EditorText(), "new");
    EXPECT_EQ(dialog.Text(1), "value 1") << "the edit has not ended yet";
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.Text(1), "new");
    EXPECT_EQ(dialog.Current(), (Position{2, 1}));
    EXPECT_EQ(GetFocus(), dialog.GridWindow());
    ASSERT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.edits[0], (GridDialog::Edit{1, 1, "new"}));
    EXPECT_EQ(dialog.okCount, 0) << "Enter belongs to the edit";
}

TEST(GridKeyboard, F2AndEnterEditTheTextThatIsThere) {
    for (const WPARAM key : {VK_F2, VK_RETURN}) {
        GridDialog dialog;
        dialog.Press(key);
        ASSERT_NE(dialog.Editor(), nullptr);
        EXPECT_EQ(dialog.EditorText(), "value 1");
        EXPECT_EQ(GetFocus(), dialog.Editor());
        EXPECT_EQ(dialog.okCount, 0);
    }
}

TEST(GridKeyboard, EscapeGivesTheOldTextBackAndLeavesTheDialogOpen) {
    GridDialog dialog;
    dialog.Type("new");
    dialog.Press(VK_ESCAPE);
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.Text(1), "value 1");
    EXPECT_EQ(dialog.cancelCount, 0);
    EXPECT_TRUE(dialog.edits.empty());
    EXPECT_EQ(GetFocus(), dialog.GridWindow());
    dialog.Press(VK_ESCAPE);
    EXPECT_EQ(dialog.cancelCount, 1) << "without an edit Escape is the dialog's";
}

}  // namespace
}  // namespace orvell::ui
