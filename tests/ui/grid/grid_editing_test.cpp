#include <gtest/gtest.h>

#include "ui/grid/grid_dialog.h"

namespace orvell::ui {
namespace {

using test::GridDialog;
using Position = GridPosition;

std::string ClassOf(HWND window) {
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

bool IsListOpen(HWND combo) {
    return SendMessageA(combo, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

TEST(GridEditing, TabEndsAnEditAndMovesOn) {
    GridDialog dialog;
    dialog.Type("x");
    dialog.Press(VK_TAB);
    EXPECT_EQ(dialog.Text(1), "x");
    EXPECT_EQ(dialog.Current(), (Position{2, 1}));
    EXPECT_EQ(GetFocus(), dialog.GridWindow());
    dialog.Type("y");
    dialog.Press(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(dialog.Text(2), "y");
    EXPECT_EQ(dialog.Current(), (Position{1, 1}));
}

TEST(GridEditing, TabLeavesTheGridWhenNothingIsEdited) {
    GridDialog dialog;
    dialog.Press(VK_TAB);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog.Window(), IDOK));
    dialog.Press(VK_TAB, {VK_SHIFT});
    EXPECT_EQ(GetFocus(), dialog.GridWindow());
}

TEST(GridEditing, EnterOutsideTheGridPressesTheDefaultButton) {
    GridDialog dialog;
    SetFocus(GetDlgItem(dialog.Window(), 1006));
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.okCount, 1);
}

TEST(GridEditing, EnterIsTheDialogsWhereThereIsNothingToEdit) {
    GridDialog dialog;
    dialog.Model().SetEditable(false);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.okCount, 1);
    EXPECT_EQ(dialog.Editor(), nullptr);
}

TEST(GridEditing, EnterAtTheLastRowStaysThere) {
    GridDialog dialog(3);
    dialog.Press(VK_DOWN, {VK_CONTROL});
    dialog.Type("last");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(3), "last");
    EXPECT_EQ(dialog.Current(), (Position{3, 1}));
}

TEST(GridEditing, WhatTheParentWritesIsShown) {
    GridDialog dialog;
    dialog.onEdit = [&](const GridNotification& edit) {
        EXPECT_EQ(edit.header.hwndFrom, dialog.GridWindow());
        EXPECT_EQ(edit.header.idFrom, 1007U);
        dialog.Model().SetItemText(edit.row, edit.column, "canonical");
    };
    dialog.Type("7:5");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "canonical");
    ASSERT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.edits[0].text, "7:5");
}

TEST(GridEditing, WhatTheParentRefusesIsTakenBack) {
    GridDialog dialog;
    dialog.answer = 1;
    dialog.Type("x");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "value 1");
    EXPECT_EQ(dialog.edits.size(), 1U);
}

TEST(GridEditing, AnEditWithoutAChangeIsToldToo) {
    GridDialog dialog;
    dialog.Press(VK_F2);
    dialog.Press(VK_RETURN);
    ASSERT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.edits[0].text, "value 1");
}

TEST(GridEditing, LosingTheFocusEndsTheEditOnce) {
    GridDialog dialog;
    dialog.Type("new");
    SetFocus(GetDlgItem(dialog.Window(), IDOK));
    EXPECT_EQ(dialog.Text(1), "new");
    EXPECT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog.Window(), IDOK)) << "the focus goes where it was sent";
}

TEST(GridEditing, ScrollingEndsTheEdit) {
    GridDialog dialog(100);
    dialog.Type("new");
    SendMessageA(dialog.GridWindow(), WM_VSCROLL, SB_PAGEDOWN, 0);
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.Text(1), "new");
}

TEST(GridEditing, TheDialogCanEndAnEdit) {
    GridDialog dialog;
    dialog.Type("new");
    EXPECT_TRUE(dialog.Grid().IsEditing());
    dialog.Grid().EndEdit(false);
    EXPECT_FALSE(dialog.Grid().IsEditing());
    EXPECT_EQ(dialog.Text(1), "value 1");
    EXPECT_TRUE(dialog.edits.empty());
    dialog.Type("new");
    dialog.Grid().EndEdit(true);
    EXPECT_EQ(dialog.Text(1), "new");
    EXPECT_EQ(dialog.edits.size(), 1U);
    dialog.Grid().EndEdit(true);
    EXPECT_EQ(dialog.edits.size(), 1U) << "no edit is open";
}

TEST(GridEditing, ReadOnlyCellsAreNotEdited) {
    GridDialog dialog;
    dialog.Model().SetItemState(1, 1, kGridCellReadOnly);
    dialog.Type("x");
    dialog.Press(VK_F2);
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.Text(1), "value 1");
}

TEST(GridEditing, ControlCharactersStartNoEdit) {
    GridDialog dialog;
    dialog.Type("\b\x01\x7F");
    EXPECT_EQ(dialog.Editor(), nullptr);
}

TEST(GridEditing, UmlautsStartAnEdit) {
    GridDialog dialog;
    dialog.Type("\xE4");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "\xE4");
}

TEST(GridEditing, LongTextsAreKeptWhole) {
    GridDialog dialog;
    const std::string text(100000, 'x');
    dialog.Model().SetItemText(1, 1, text);
    dialog.Press(VK_F2);
    dialog.Press(VK_END);
    dialog.Type("y");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), text + "y");
}

TEST(GridEditing, TheParentMayTakeTheRowAway) {
    GridDialog dialog(3);
    dialog.onEdit = [&](const GridNotification&) {
        dialog.Model().SetRowCount(1);
        dialog.Grid().AdjustSizes();
    };
    dialog.Press(VK_DOWN, {VK_CONTROL});
    dialog.Type("x");
    dialog.Press(VK_RETURN);
    EXPECT_TRUE(dialog.Current().IsNone());
    EXPECT_EQ(dialog.Model().GetRowCount(), 1);
}

TEST(GridEditing, AnEditWhoseRowGoesIsGivenUp) {
    GridDialog dialog(3);
    dialog.Press(VK_DOWN, {VK_CONTROL});
    dialog.Type("x");
    dialog.Model().SetRowCount(2);
    dialog.Grid().AdjustSizes();
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_TRUE(dialog.edits.empty());
}

TEST(GridEditing, ACellThatBecomesReadOnlyKeepsItsText) {
    GridDialog dialog;
    dialog.Type("x");
    dialog.Model().SetItemState(1, 1, kGridCellReadOnly);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "value 1");
    EXPECT_TRUE(dialog.edits.empty());
}

TEST(GridEditing, TheParentMayDestroyTheGrid) {
    GridDialog dialog;
    dialog.onEdit = [&](const GridNotification&) { DestroyWindow(dialog.GridWindow()); };
    dialog.Type("x");
    dialog.Press(VK_RETURN);
    EXPECT_FALSE(IsWindow(dialog.GridWindow()));
    EXPECT_EQ(dialog.edits.size(), 1U);
}

TEST(GridEditing, TheWindowMayGoDuringAnEdit) {
    GridDialog dialog;
    dialog.Type("x");
    DestroyWindow(dialog.GridWindow());
    EXPECT_TRUE(dialog.edits.empty()) << "a parent that is going is told nothing";
}

TEST(GridComboCell, IsEditedByItsList) {
    GridDialog dialog;
    dialog.MakeCombo(1, {"Off", "On", "on"});
    dialog.Press(VK_F2);
    ASSERT_EQ(ClassOf(dialog.Editor()), "ComboBox");
    EXPECT_EQ(SendMessageA(dialog.Editor(), CB_GETCOUNT, 0, 0), 3);
    EXPECT_EQ(SendMessageA(dialog.Editor(), CB_GETCURSEL, 0, 0), 0);
    dialog.Press(VK_DOWN);
    dialog.Press(VK_DOWN);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "on") << "told from On by its case";
    EXPECT_EQ(dialog.Current(), (Position{2, 1}));
    ASSERT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.edits[0], (GridDialog::Edit{1, 1, "on"}));
}

TEST(GridComboCell, AltDownOpensTheList) {
    GridDialog dialog;
    dialog.MakeCombo(1, {"Off", "On"});
    dialog.Press(VK_DOWN, {VK_MENU});
    ASSERT_NE(dialog.Editor(), nullptr);
    EXPECT_TRUE(IsListOpen(dialog.Editor()));
    dialog.Press(VK_DOWN);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "On");
    EXPECT_EQ(dialog.Editor(), nullptr);
}

TEST(GridComboCell, AltDownOpensNothingElsewhere) {
    GridDialog dialog;
    dialog.Press(VK_DOWN, {VK_MENU});
    EXPECT_EQ(dialog.Editor(), nullptr);
}

TEST(GridComboCell, EscapeKeepsTheOldChoice) {
    GridDialog dialog;
    dialog.MakeCombo(1, {"Off", "On"});
    dialog.Press(VK_DOWN, {VK_MENU});
    dialog.Press(VK_DOWN);
    dialog.Press(VK_ESCAPE);
    EXPECT_EQ(dialog.Text(1), "Off");
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.cancelCount, 0);
}

TEST(GridComboCell, TypingChoosesByTheFirstCharacter) {
    GridDialog dialog;
    dialog.MakeCombo(1, {"Auto", "Manual", "Off"});
    dialog.Type("m");
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "Manual");
}

TEST(GridComboCell, ATextThatIsNoChoiceStaysUnlessAnotherIsChosen) {
    GridDialog dialog;
    dialog.MakeCombo(1, {"Off", "On"});
    dialog.Model().SetItemText(1, 1, "17");
    dialog.Press(VK_F2);
    EXPECT_EQ(SendMessageA(dialog.Editor(), CB_GETCURSEL, 0, 0), CB_ERR);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "17");
}

TEST(GridComboCell, AChoiceByTheMouseEndsTheEdit) {
    GridDialog dialog;
    dialog.MakeCombo(1, {"Off", "On"});
    dialog.Press(VK_DOWN, {VK_MENU});
    COMBOBOXINFO info = {};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetComboBoxInfo(dialog.Editor(), &info));
    RECT item = {};
    SendMessageA(info.hwndList, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
    const LPARAM point = MAKELPARAM(item.left + 3, item.top + 3);
    SendMessageA(info.hwndList, WM_MOUSEMOVE, 0, point);
    SendMessageA(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageA(info.hwndList, WM_LBUTTONUP, 0, point);
    EXPECT_EQ(dialog.Text(1), "Off") << "not in the middle of the list's own work";
    dialog.Pump();
    EXPECT_EQ(dialog.Text(1), "On");
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.Current(), (Position{1, 1}));
}

TEST(GridComboCell, WithoutChoicesKeepsItsText) {
    GridDialog dialog;
    dialog.Model().SetCellType(1, 1, GridCellKind::Combo);
    dialog.Press(VK_DOWN, {VK_MENU});
    ASSERT_NE(dialog.Editor(), nullptr);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Text(1), "value 1");
}

TEST(GridCheckCell, SpaceToggles) {
    GridDialog dialog;
    dialog.Model().SetCellType(1, 1, GridCellKind::Check);
    dialog.Type(" ");
    EXPECT_EQ(dialog.Model().GetItemState(1, 1), kGridCellChecked);
    EXPECT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.Editor(), nullptr);
    dialog.Type("x");
    EXPECT_EQ(dialog.Model().GetItemState(1, 1), kGridCellChecked);
    dialog.Type(" ");
    EXPECT_EQ(dialog.Model().GetItemState(1, 1), 0U);
}

TEST(GridCheckCell, ARefusedMarkIsTakenBack) {
    GridDialog dialog;
    dialog.Model().SetCellType(1, 1, GridCellKind::Check);
    dialog.answer = 1;
    dialog.Type(" ");
    EXPECT_EQ(dialog.Model().GetItemState(1, 1), 0U);
}

TEST(GridCheckCell, SpaceStartsAnEditInATextCell) {
    GridDialog dialog;
    dialog.Type(" ");
    EXPECT_EQ(dialog.EditorText(), " ");
}

}  // namespace
}  // namespace orvell::ui
