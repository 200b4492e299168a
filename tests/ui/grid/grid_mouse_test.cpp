#include <gtest/gtest.h>

#include "ui/grid/grid_dialog.h"

namespace orvell::ui {
namespace {

using test::GridDialog;
using Position = GridPosition;

/// Sends what the mouse does to the grid; points are in its client area.
class Mouse {
  public:
    explicit Mouse(const GridDialog& dialog) : window_(dialog.GridWindow()), dialog_(dialog) {}

    void Down(POINT point, WPARAM keys = 0) const {
        SendMessageA(window_, WM_LBUTTONDOWN, MK_LBUTTON | keys, At(point));
    }
    void Move(POINT point) const { SendMessageA(window_, WM_MOUSEMOVE, MK_LBUTTON, At(point)); }
    void Up(POINT point) const { SendMessageA(window_, WM_LBUTTONUP, 0, At(point)); }
    void Click(POINT point, WPARAM keys = 0) const {
        Down(point, keys);
        Up(point);
    }
    void DoubleClick(POINT point) const {
        Click(point);
        SendMessageA(window_, WM_LBUTTONDBLCLK, MK_LBUTTON, At(point));
        Up(point);
    }
    void Wheel(int delta) const { SendMessageA(window_, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0); }
    [[nodiscard]] POINT Middle(int row, int column) const {
        const GridRect rect = dialog_.Grid().Layout().CellRect({row, column});
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }

  private:
    static LPARAM At(POINT point) { return MAKELPARAM(point.x, point.y); }

    HWND window_;
    const GridDialog& dialog_;
};

TEST(GridMouse, AClickMakesTheCellCurrentAndTakesTheFocus) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    SetFocus(GetDlgItem(dialog.Window(), IDOK));
    mouse.Click(mouse.Middle(3, 1));
    EXPECT_EQ(dialog.Current(), (Position{3, 1}));
    EXPECT_EQ(GetFocus(), dialog.GridWindow());
    EXPECT_NE(GetCapture(), dialog.GridWindow());
}

TEST(GridMouse, AClickOnANameMeansItsValue) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    mouse.Click(mouse.Middle(4, 0));
    EXPECT_EQ(dialog.Current(), (Position{4, 1}));
}

TEST(GridMouse, AClickOnTheHeadingOrBesideTheCellsChangesNothing) {
    GridDialog dialog(2);
    const Mouse mouse(dialog);
    mouse.Click(mouse.Middle(2, 1));
    mouse.Click(mouse.Middle(0, 1));
    mouse.Click({250, 50});
    mouse.Click({50, 120});
    EXPECT_EQ(dialog.Current(), (Position{2, 1}));
}

TEST(GridMouse, DraggingSelectsRows) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    mouse.Down(mouse.Middle(2, 1));
    mouse.Move(mouse.Middle(3, 0));
    mouse.Move(mouse.Middle(5, 1));
    EXPECT_EQ(GetCapture(), dialog.GridWindow());
    mouse.Up(mouse.Middle(5, 1));
    const GridSelection& selection = dialog.Grid().Selection();
    EXPECT_EQ(selection.FirstRow(), 2);
    EXPECT_EQ(selection.LastRow(), 5);
    mouse.Move(mouse.Middle(1, 1));
    EXPECT_EQ(selection.LastRow(), 5) << "the button is up";
}

TEST(GridMouse, DraggingBelowTheWindowScrolls) {
    GridDialog dialog(100);
    const Mouse mouse(dialog);
    mouse.Down(mouse.Middle(2, 1));
    for (int i = 0; i < 10; ++i) {
        mouse.Move({130, 500});
    }
    EXPECT_GT(dialog.Grid().Layout().ScrolledRows(), 5);
    EXPECT_EQ(dialog.Grid().Selection().FirstRow(), 2);
    for (int i = 0; i < 30; ++i) {
        mouse.Move({130, -5});
    }
    EXPECT_EQ(dialog.Grid().Layout().ScrolledRows(), 0);
    mouse.Up({130, -5});
}

TEST(GridMouse, ShiftExtendsTheSelection) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    mouse.Click(mouse.Middle(2, 1));
    mouse.Click(mouse.Middle(4, 1), MK_SHIFT);
    EXPECT_EQ(dialog.Grid().Selection().FirstRow(), 2);
    EXPECT_EQ(dialog.Grid().Selection().LastRow(), 4);
}

TEST(GridMouse, ADoubleClickEdits) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    mouse.DoubleClick(mouse.Middle(3, 1));
    ASSERT_NE(dialog.Editor(), nullptr);
    EXPECT_EQ(dialog.EditorText(), "value 3");
    EXPECT_EQ(GetFocus(), dialog.Editor());
    mouse.Click(mouse.Middle(1, 1));
    EXPECT_EQ(dialog.Editor(), nullptr) << "a click elsewhere ends the edit";
    EXPECT_EQ(dialog.edits.size(), 1U);
}

TEST(GridMouse, ADoubleClickOnANameEditsNothing) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    mouse.DoubleClick(mouse.Middle(3, 0));
    EXPECT_EQ(dialog.Editor(), nullptr);
}

TEST(GridMouse, TheCheckBoxTogglesAndTheTextBesideItDoesNot) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    dialog.Model().SetCellType(2, 1, GridCellKind::Check);
    mouse.Click(mouse.Middle(2, 1));
    EXPECT_EQ(dialog.Model().GetItemState(2, 1), 0U);
    const GridRect cell = dialog.Grid().Layout().CellRect({2, 1});
    mouse.Click({cell.left + 6, (cell.top + cell.bottom) / 2});
    EXPECT_EQ(dialog.Model().GetItemState(2, 1), kGridCellChecked);
    EXPECT_EQ(dialog.Current(), (Position{2, 1}));
}

TEST(GridMouse, TheArrowOpensTheList) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    dialog.MakeCombo(2, {"Off", "On"});
    mouse.Click(mouse.Middle(2, 1));
    EXPECT_EQ(dialog.Editor(), nullptr);
    const GridRect cell = dialog.Grid().Layout().CellRect({2, 1});
    mouse.Down({cell.right - 6, (cell.top + cell.bottom) / 2});
    ASSERT_NE(dialog.Editor(), nullptr);
    EXPECT_NE(SendMessageA(dialog.Editor(), CB_GETDROPPEDSTATE, 0, 0), 0);
}

TEST(GridMouse, ABorderInTheHeadingIsDragged) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    mouse.Down({119, 5});
    mouse.Move({149, 5});
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 150);
    mouse.Move({-100, 5});
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 8) << "never lost";
    mouse.Move({89, 5});
    mouse.Up({89, 5});
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 90);
    EXPECT_EQ(dialog.Grid().GetColumnWidth(1), 120);
    mouse.Move({200, 5});
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 90);
}

TEST(GridMouse, ABorderBelowTheHeadingIsNot) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    const int y = static_cast<int>(mouse.Middle(2, 1).y);
    mouse.Down({119, y});
    mouse.Move({149, y});
    mouse.Up({149, y});
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 120);
}

TEST(GridMouse, ACaptureThatIsLostEndsTheDrag) {
    GridDialog dialog;
    const Mouse mouse(dialog);
    mouse.Down({119, 5});
    ReleaseCapture();
    mouse.Move({149, 5});
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 120);
}

TEST(GridMouse, TheWheelScrollsByTheSystemsRows) {
    GridDialog dialog(100);
    const Mouse mouse(dialog);
    UINT before = 0;
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &before, 0);
    SystemParametersInfoA(SPI_SETWHEELSCROLLLINES, 2, nullptr, 0);
    mouse.Wheel(-WHEEL_DELTA);
    EXPECT_EQ(dialog.Grid().Layout().ScrolledRows(), 2);
    mouse.Wheel(-WHEEL_DELTA / 2);
    EXPECT_EQ(dialog.Grid().Layout().ScrolledRows(), 3);
    mouse.Wheel(WHEEL_DELTA * 10);
    EXPECT_EQ(dialog.Grid().Layout().ScrolledRows(), 0);
    SystemParametersInfoA(SPI_SETWHEELSCROLLLINES, WHEEL_PAGESCROLL, nullptr, 0);
    mouse.Wheel(-WHEEL_DELTA);
    EXPECT_EQ(dialog.Grid().Layout().ScrolledRows(), dialog.Grid().Layout().PageRows());
    SystemParametersInfoA(SPI_SETWHEELSCROLLLINES, before, nullptr, 0);
}

}  // namespace
}  // namespace orvell::ui
