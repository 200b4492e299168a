#include "ui/grid/grid_clipboard.h"

#include <gtest/gtest.h>

#include "ui/grid/grid_dialog.h"

namespace orvell::ui {
namespace {

using test::GridDialog;

std::string Clipboard() {
    return TextOnClipboard(nullptr);
}

void SetClipboard(const GridDialog& dialog, std::string_view text) {
    PutOnClipboard(dialog.Window(), text);
}

TEST(GridClipboard, ControlCCopiesTheCurrentText) {
    GridDialog dialog;
    dialog.Model().SetItemText(1, 1, "K\xFChlung \x80");
    dialog.Press('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "K\xFChlung \x80");
}

TEST(GridClipboard, ControlCCopiesARangeAsLines) {
    GridDialog dialog;
    dialog.Press(VK_DOWN);
    dialog.Press(VK_DOWN, {VK_SHIFT});
    dialog.Press(VK_DOWN, {VK_SHIFT});
    dialog.Press('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "value 2\r\nvalue 3\r\nvalue 4\r\n");
}

TEST(GridClipboard, ControlVFillsTheValuesBelow) {
    GridDialog dialog;
    SetClipboard(dialog, "a\r\nname\tb\r\nc");
    dialog.Press(VK_DOWN);
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Text(1), "value 1");
    EXPECT_EQ(dialog.Text(2), "a");
    EXPECT_EQ(dialog.Text(3), "b");
    EXPECT_EQ(dialog.Text(4), "c");
    EXPECT_EQ(dialog.Text(5), "value 5");
    ASSERT_EQ(dialog.edits.size(), 3U);
    EXPECT_EQ(dialog.edits[1], (GridDialog::Edit{3, 1, "b"}));
}

TEST(GridClipboard, PastingStopsAtTheLastRow) {
    GridDialog dialog(2);
    SetClipboard(dialog, "a\nb\nc\nd\n");
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Model().GetRowCount(), 3);
    EXPECT_EQ(dialog.Text(1), "a");
    EXPECT_EQ(dialog.Text(2), "b");
    EXPECT_EQ(dialog.edits.size(), 2U);
}

TEST(GridClipboard, PastingBeginsAtTheCurrentCellOfARange) {
    GridDialog dialog;
    SetClipboard(dialog, "a\nb\n");
    dialog.Press(VK_DOWN);
    dialog.Press(VK_DOWN, {VK_SHIFT});
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Text(2), "value 2");
    EXPECT_EQ(dialog.Text(3), "a");
    EXPECT_EQ(dialog.Text(4), "b") << "the range's end is no limit";
    dialog.Press(VK_UP);
    dialog.Press(VK_UP, {VK_SHIFT});
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Text(1), "a") << "the end that moves is the current cell";
}

TEST(GridClipboard, LinesPassOverCellsThatDoNotTakeThem) {
    GridDialog dialog;
    dialog.Model().SetItemState(2, 1, kGridCellReadOnly);
    dialog.MakeCombo(3, {"Off", "On"});
    dialog.MakeCombo(4, {"Off", "On"});
    SetClipboard(dialog, "a\nb\nnone\nOn\ne\n");
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Text(1), "a");
    EXPECT_EQ(dialog.Text(2), "value 2");
    EXPECT_EQ(dialog.Text(3), "Off");
    EXPECT_EQ(dialog.Text(4), "On");
    EXPECT_EQ(dialog.Text(5), "e");
}

TEST(GridClipboard, TheParentHearsEachPastedLineAndMayRefuseIt) {
    GridDialog dialog;
    dialog.onEdit = [&](const GridNotification& edit) { dialog.answer = edit.row == 2 ? 1 : 0; };
    SetClipboard(dialog, "a\nb\nc\n");
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Text(1), "a");
    EXPECT_EQ(dialog.Text(2), "value 2");
    EXPECT_EQ(dialog.Text(3), "c");
}

TEST(GridClipboard, TheParentMayDestroyTheGridWhilePasting) {
    GridDialog dialog;
    dialog.onEdit = [&](const GridNotification&) { DestroyWindow(dialog.GridWindow()); };
    SetClipboard(dialog, "a\nb\nc\n");
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.edits.size(), 1U);
}

TEST(GridClipboard, WhatIsCopiedPastesBack) {
    GridDialog dialog;
    dialog.Press(VK_END, {VK_CONTROL, VK_SHIFT});
    SendMessageA(dialog.GridWindow(), WM_COPY, 0, 0);
    for (int row = 1; row <= 20; ++row) {
        dialog.Model().SetItemText(row, 1, "");
    }
    dialog.Press(VK_HOME, {VK_CONTROL});
    SendMessageA(dialog.GridWindow(), WM_PASTE, 0, 0);
    EXPECT_EQ(dialog.Text(1), "value 1");
    EXPECT_EQ(dialog.Text(20), "value 20");
    EXPECT_EQ(dialog.edits.size(), 20U);
}

TEST(GridClipboard, TheOlderKeysWorkToo) {
    GridDialog dialog;
    dialog.Press(VK_INSERT, {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "value 1");
    dialog.Press(VK_DOWN);
    dialog.Press(VK_INSERT, {VK_SHIFT});
    EXPECT_EQ(dialog.Text(2), "value 1");
}

TEST(GridClipboard, PastingNothingChangesNothing) {
    GridDialog dialog;
    SetClipboard(dialog, "");
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Text(1), "value 1");
    OpenClipboard(dialog.Window());
    EmptyClipboard();
    CloseClipboard();
    dialog.Press('V', {VK_CONTROL});
    EXPECT_TRUE(dialog.edits.empty());
}

TEST(GridClipboard, AReadOnlyGridCopiesAndDoesNotPaste) {
    GridDialog dialog;
    dialog.Model().SetEditable(false);
    dialog.Press('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "value 1");
    dialog.Press(VK_DOWN);
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Text(2), "value 2");
}

}  // namespace
}  // namespace orvell::ui
