#include <gtest/gtest.h>

#include <random>

#include "ui/grid/grid_dialog.h"

namespace orvell::ui {
namespace {

using test::GridDialog;

HINSTANCE ThisProgram() {
    return GetModuleHandleA(nullptr);
}

SCROLLINFO BarOf(const GridDialog& dialog, int bar) {
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(dialog.GridWindow(), bar, &info);
    return info;
}

bool HasBar(const GridDialog& dialog, LONG style) {
    return (GetWindowLongA(dialog.GridWindow(), GWL_STYLE) & style) != 0;
}

void Resize(const GridDialog& dialog, int width, int height) {
    SetWindowPos(dialog.GridWindow(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
}

TEST(GridWindowClassTest, IsRegisteredAsLongAsItLives) {
    WNDCLASSEXA found = {};
    found.cbSize = sizeof found;
    {
        const GridWindowClass registered(ThisProgram());
        EXPECT_TRUE(registered.IsRegistered());
        ASSERT_TRUE(GetClassInfoExA(ThisProgram(), "MFCGridCtrl", &found));
        EXPECT_EQ(found.style, static_cast<UINT>(CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW));
        EXPECT_EQ(found.hCursor, LoadCursor(nullptr, IDC_ARROW));
        EXPECT_EQ(found.hbrBackground, GetSysColorBrush(COLOR_BTNFACE));
        const GridWindowClass again(ThisProgram());
        EXPECT_FALSE(again.IsRegistered());
    }
    EXPECT_FALSE(GetClassInfoExA(ThisProgram(), "MFCGridCtrl", &found));
    const GridWindowClass anew(ThisProgram());
    EXPECT_TRUE(anew.IsRegistered());
}

TEST(GridWindow, IsFoundByItsWindowOnly) {
    GridDialog dialog;
    EXPECT_NE(CGridCtrl::FromWindow(dialog.GridWindow()), nullptr);
    EXPECT_EQ(CGridCtrl::FromWindow(dialog.Window()), nullptr);
    EXPECT_EQ(CGridCtrl::FromWindow(GetDlgItem(dialog.Window(), IDOK)), nullptr);
    EXPECT_EQ(CGridCtrl::FromWindow(nullptr), nullptr);
    const HWND grid = dialog.GridWindow();
    DestroyWindow(grid);
    EXPECT_EQ(CGridCtrl::FromWindow(grid), nullptr);
}

TEST(GridWindow, IsEmptyAtFirst) {
    const GridWindowClass registered(ThisProgram());
    const HWND window = CreateWindowExA(0, "MFCGridCtrl", "", WS_POPUP, 0, 0, 100, 100, nullptr,
                                        nullptr, ThisProgram(), nullptr);
    ASSERT_NE(window, nullptr);
    CGridCtrl& grid = *CGridCtrl::FromWindow(window);
    EXPECT_EQ(grid.Model().GetRowCount(), 0);
    EXPECT_EQ(grid.Model().GetColumnCount(), 0);
    EXPECT_EQ(grid.Model().GetFixedRowCount(), 0);
    for (const WPARAM key : {VK_DOWN, VK_F2, VK_RETURN, VK_END}) {
        SendMessageA(window, WM_KEYDOWN, key, 1);
    }
    SendMessageA(window, WM_CHAR, 'x', 1);
    SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(10, 10));
    SendMessageA(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, 10));
    SendMessageA(window, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    SendMessageA(window, WM_COPY, 0, 0);
    SendMessageA(window, WM_PASTE, 0, 0);
    grid.AdjustSizes();
    EXPECT_FALSE(grid.IsEditing());
    DestroyWindow(window);
}

TEST(GridWindow, ShowsBarsOnlyWhenNeeded) {
    GridDialog dialog(3);
    EXPECT_FALSE(HasBar(dialog, WS_VSCROLL));
    EXPECT_FALSE(HasBar(dialog, WS_HSCROLL));
    dialog.Model().SetRowCount(100);
    dialog.Grid().AdjustSizes();
    EXPECT_TRUE(HasBar(dialog, WS_VSCROLL));
    EXPECT_FALSE(HasBar(dialog, WS_HSCROLL));
    dialog.Grid().SetColumnWidth(1, 1000);
    EXPECT_TRUE(HasBar(dialog, WS_HSCROLL));
    dialog.Model().SetRowCount(3);
    dialog.Grid().AdjustSizes();
    EXPECT_FALSE(HasBar(dialog, WS_VSCROLL));
    dialog.Grid().SetColumnWidth(1, 10);
    EXPECT_FALSE(HasBar(dialog, WS_HSCROLL));
}

TEST(GridWindow, OneBarMayNeedTheOther) {
    GridDialog dialog(3);
    RECT client = {};
    GetClientRect(dialog.GridWindow(), &client);
    dialog.Grid().SetColumnWidth(0, 10);
    dialog.Grid().SetColumnWidth(1, static_cast<int>(client.right) - 10);
    EXPECT_FALSE(HasBar(dialog, WS_HSCROLL)) << "fits exactly";
    dialog.Model().SetRowCount(100);
    dialog.Grid().AdjustSizes();
    EXPECT_TRUE(HasBar(dialog, WS_HSCROLL)) << "the vertical bar takes room";
    dialog.Model().SetRowCount(3);
    dialog.Grid().AdjustSizes();
    EXPECT_FALSE(HasBar(dialog, WS_VSCROLL));
    EXPECT_FALSE(HasBar(dialog, WS_HSCROLL));
}

TEST(GridWindow, BarsTellTheRows) {
    GridDialog dialog(100'000);
    const SCROLLINFO bar = BarOf(dialog, SB_VERT);
    EXPECT_EQ(bar.nMin, 0);
    EXPECT_EQ(bar.nMax, 99'999);
    EXPECT_EQ(static_cast<int>(bar.nPage), dialog.Grid().Layout().PageRows());
    EXPECT_EQ(bar.nPos, 0);
    dialog.Press(VK_END, {VK_CONTROL});
    EXPECT_EQ(BarOf(dialog, SB_VERT).nPos, 100'000 - static_cast<int>(bar.nPage));
}

TEST(GridWindow, ScrollsByTheBar) {
    GridDialog dialog(100'000);
    const GridLayout& layout = dialog.Grid().Layout();
    const auto scroll = [&](WORD action) {
        SendMessageA(dialog.GridWindow(), WM_VSCROLL, action, 0);
        return layout.ScrolledRows();
    };
    EXPECT_EQ(scroll(SB_LINEDOWN), 1);
    EXPECT_EQ(scroll(SB_PAGEDOWN), 1 + layout.PageRows());
    EXPECT_EQ(scroll(SB_PAGEUP), 1);
    EXPECT_EQ(scroll(SB_LINEUP), 0);
    EXPECT_EQ(scroll(SB_LINEUP), 0);
    EXPECT_EQ(scroll(SB_BOTTOM), layout.LargestScrolledRows());
    EXPECT_EQ(scroll(SB_TOP), 0);
    EXPECT_EQ(scroll(SB_ENDSCROLL), 0);
    EXPECT_EQ(dialog.Current(), (GridPosition{1, 1})) << "scrolling moves the view alone";
}

TEST(GridWindow, ScrollsSideways) {
    GridDialog dialog;
    dialog.Grid().SetColumnWidth(1, 1000);
    SendMessageA(dialog.GridWindow(), WM_HSCROLL, SB_LINEDOWN, 0);
    const int line = dialog.Grid().Layout().ScrolledPixels();
    EXPECT_GT(line, 0);
    SendMessageA(dialog.GridWindow(), WM_HSCROLL, SB_BOTTOM, 0);
    EXPECT_EQ(dialog.Grid().Layout().ScrolledPixels(),
              dialog.Grid().Layout().LargestScrolledPixels());
    SendMessageA(dialog.GridWindow(), WM_HSCROLL, SB_TOP, 0);
    EXPECT_EQ(dialog.Grid().Layout().ScrolledPixels(), 0);
}

TEST(GridWindow, LivesWithoutRoom) {
    GridDialog dialog(100);
    dialog.Press(VK_F2);
    Resize(dialog, 0, 0);
    UpdateWindow(dialog.GridWindow());
    dialog.Press(VK_ESCAPE);
    dialog.Press(VK_END, {VK_CONTROL});
    dialog.Press(VK_F2);
    dialog.Press(VK_RETURN);
    EXPECT_EQ(dialog.Current(), (GridPosition{100, 1}));
    Resize(dialog, 300, 150);
    dialog.Press(VK_HOME, {VK_CONTROL});
    EXPECT_EQ(dialog.Grid().Layout().ScrolledRows(), 0);
}

TEST(GridWindow, AMillionRowsScrollToTheLast) {
    GridDialog dialog(0);
    dialog.Model().SetRowCount(1'000'001);
    dialog.Model().SetItemText(1'000'000, 1, "last");
    dialog.Grid().AdjustSizes();
    dialog.Press(VK_END, {VK_CONTROL});
    dialog.Type("x");
    dialog.Press(VK_RETURN);
    ASSERT_EQ(dialog.edits.size(), 1U);
    EXPECT_EQ(dialog.edits[0].row, 1'000'000);
}

TEST(GridWindow, RedrawCanBeSuspended) {
    GridDialog dialog(3);
    SendMessageA(dialog.GridWindow(), WM_SETREDRAW, FALSE, 0);
    for (int i = 0; i < 1000; ++i) {
        dialog.Model().InsertRow("more");
    }
    dialog.Grid().AdjustSizes();
    EXPECT_FALSE(GetUpdateRect(dialog.GridWindow(), nullptr, FALSE));
    SendMessageA(dialog.GridWindow(), WM_SETREDRAW, TRUE, 0);
    dialog.Grid().Refresh();
    EXPECT_TRUE(GetUpdateRect(dialog.GridWindow(), nullptr, FALSE));
}

TEST(GridWindow, DisablingEndsTheEdit) {
    GridDialog dialog;
    dialog.Type("new");
    EnableWindow(dialog.GridWindow(), FALSE);
    EXPECT_EQ(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.Text(1), "new");
    dialog.Grid().Activate({1, 1}, GridEditStart::WholeText);
    EXPECT_EQ(dialog.Editor(), nullptr);
}

TEST(GridWindow, RowsThatGoTakeTheCurrentCellAlong) {
    GridDialog dialog(20);
    dialog.Press(VK_END, {VK_CONTROL});
    dialog.Model().SetRowCount(5);
    dialog.Grid().AdjustSizes();
    EXPECT_EQ(dialog.Current(), (GridPosition{4, 1}));
    dialog.Model().SetRowCount(0);
    dialog.Grid().AdjustSizes();
    EXPECT_TRUE(dialog.Current().IsNone());
    dialog.Press(VK_DOWN);
    dialog.Type("x");
    EXPECT_EQ(dialog.Editor(), nullptr);
}

/// Whatever comes in whatever order, the current cell is one of the grid's.
TEST(GridWindow, SurvivesAnyOrderOfMessages) {
    constexpr UINT kMessages[] = {
        WM_KEYDOWN,   WM_SYSKEYDOWN, WM_CHAR,       WM_LBUTTONDOWN,    WM_LBUTTONDBLCLK,
        WM_MOUSEMOVE, WM_LBUTTONUP,  WM_MOUSEWHEEL, WM_VSCROLL,        WM_HSCROLL,
        WM_COPY,      WM_PASTE,      WM_TIMER,      WM_SYSCOLORCHANGE, WM_CAPTURECHANGED,
        WM_KILLFOCUS, WM_SETFOCUS,   WM_PAINT,      WM_COMMAND,        kGridEditorMessage};
    constexpr WPARAM kKeys[] = {VK_DOWN,   VK_UP,     VK_NEXT, VK_END, VK_HOME, VK_F2,
                                VK_RETURN, VK_ESCAPE, VK_TAB,  ' ',    'V',     1};
    GridDialog dialog(30);
    dialog.MakeCombo(2, {"Off", "On"});
    dialog.Model().SetCellType(3, 1, GridCellKind::Check);
    std::mt19937 random(1);
    const auto pick = [&](const auto& list) { return list[random() % std::size(list)]; };
    for (int i = 0; i < 5000; ++i) {
        const HWND target =
            dialog.Editor() != nullptr && random() % 2 == 0 ? dialog.Editor() : dialog.GridWindow();
        const UINT message = pick(kMessages);
        const auto point = static_cast<LPARAM>(random() % 150 << 16 | random() % 300);
        const bool isWithoutParameters = message == WM_PAINT || message == WM_COMMAND;
        SendMessageA(target, message, isWithoutParameters ? 0 : pick(kKeys),
                     isWithoutParameters ? 0 : point);
        if (random() % 50 == 0) {
            dialog.Model().SetRowCount(static_cast<int>(random() % 40));
            dialog.Grid().AdjustSizes();
        }
        const GridPosition current = dialog.Current();
        ASSERT_TRUE(current.IsNone() || dialog.Model().IsValueCell(current.row, current.column));
    }
    dialog.Grid().EndEdit(false);
    EXPECT_EQ(dialog.Editor(), nullptr);
}

TEST(GridWindow, AModelThatWasChangedInSilenceDoesNoHarm) {
    GridDialog dialog(20);
    dialog.Model().SetRowCount(0);
    dialog.Model().SetColumnCount(0);
    RedrawWindow(dialog.GridWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    dialog.Type("x");
    dialog.Press(VK_DOWN);
    dialog.Press('V', {VK_CONTROL});
    EXPECT_EQ(dialog.Editor(), nullptr);
}

}  // namespace
}  // namespace orvell::ui
