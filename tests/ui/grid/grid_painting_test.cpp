#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "ui/grid/grid_dialog.h"
#include "ui/grid/grid_painter.h"
#include "ui/grid/picture.h"

namespace orvell::ui {
namespace {

using test::GridDialog;
using test::Picture;

/// Colours that no default picture has.
constexpr GridColours kColours = {
    .window = 0x00F0F1F2,
    .windowText = 0x00101112,
    .face = 0x00C0C1C2,
    .faceText = 0x00202122,
    .line = 0x00808182,
    .highlight = 0x00A01020,
    .highlightText = 0x00E0D0C0,
    .greyText = 0x00707172,
};
constexpr Colour kNothingDrawn = 0x00123456;

/// Counts which cells the painter asks for.
class CountingCells final : public GridCellSource {
  public:
    explicit CountingCells(const GridModel& model) : model_(model) {}

    const CGridCellBase* CellAt(int row, int column) const override {
        asked_.insert({row, column});
        return model_.CellAt(row, column);
    }
    GridCellKind GetCellType(int row, int column) const override {
        return model_.GetCellType(row, column);
    }
    [[nodiscard]] const std::set<std::pair<int, int>>& Asked() const { return asked_; }

  private:
    const GridModel& model_;
    mutable std::set<std::pair<int, int>> asked_;
};

/// A grid without a window: a heading and rows of 20 pixels in a picture of 200 x 110.
class GridPainting : public testing::Test {
  protected:
    void SetUp() override {
        model_.SetFixedRowCount(1);
        model_.SetColumnCount(2);
        model_.SetRowCount(1);
        model_.SetItemText(0, 0, "Element");
        for (int row = 1; row < 1000; ++row) {
            model_.InsertRow("MMM");
        }
        layout_.SetShape(model_);
        layout_.SetRowHeight(20);
        layout_.SetColumnWidth(0, 80);
        layout_.SetColumnWidth(1, 80);
        layout_.SetClientSize(picture_.Width(), picture_.Height());
    }

    [[nodiscard]] GridRange ValueCells() const { return {1, model_.GetRowCount(), 1, 2, 4}; }

    void Paint(const GridCellSource& cells) {
        picture_.Clear(kNothingDrawn);
        const GridView view = {
            .cells = cells,
            .layout = layout_,
            .selection = selection_,
            .colours = kColours,
            .metrics = {.rowHeight = 20,
                        .padding = 3,
                        .checkBox = 13,
                        .arrow = 13,
                        .frame = 2,
                        .borderReach = 4},
            .font = static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)),
            .isEnabled = isEnabled_,
            .isFocused = isFocused_,
        };
        GridPainter(picture_.Canvas(), view).Paint(area_);
    }
    void Paint() { Paint(model_); }

    [[nodiscard]] GridRect Inside(int row, int column) const {
        return Shrunk(WithoutLine(layout_.CellRect({row, column})), 3);
    }
    [[nodiscard]] bool ShowsText(int row, int column, Colour colour) const {
        return picture_.Count(Inside(row, column), colour) > 0;
    }
    /// A pixel of the cell that no text reaches.
    [[nodiscard]] Colour Ground(int row, int column) const {
        const GridRect cell = layout_.CellRect({row, column});
        return picture_.At(cell.right - 4, cell.bottom - 4);
    }

    GridModel model_;
    GridLayout layout_;
    GridSelection selection_;
    Picture picture_{200, 110};
    GridRect area_ = {0, 0, 200, 110};
    bool isEnabled_ = true;
    bool isFocused_ = true;
};

TEST_F(GridPainting, UsesTheSystemsColours) {
    Paint();
    EXPECT_EQ(Ground(0, 0), kColours.face);
    EXPECT_TRUE(ShowsText(0, 0, kColours.faceText));
    EXPECT_EQ(Ground(1, 0), kColours.window);
    EXPECT_TRUE(ShowsText(1, 0, kColours.windowText));
    EXPECT_FALSE(ShowsText(1, 1, kColours.windowText)) << "an empty cell";
    EXPECT_EQ(picture_.At(79, 30), kColours.line);
    EXPECT_EQ(picture_.At(10, 39), kColours.line);
    EXPECT_EQ(picture_.At(180, 30), kColours.face) << "beside the cells";
}

TEST_F(GridPainting, UsesTheCellsOwnColours) {
    model_.SetItemBackColour(2, 0, 0x00DCFFFF);
    model_.SetItemTextColour(2, 0, 0x000000AA);
    Paint();
    EXPECT_EQ(Ground(2, 0), 0x00DCFFFFU);
    EXPECT_TRUE(ShowsText(2, 0, 0x000000AA));
    EXPECT_EQ(Ground(1, 0), kColours.window);
}

TEST_F(GridPainting, DrawsEveryPixelOfTheArea) {
    Paint();
    EXPECT_EQ(picture_.Count({0, 0, 200, 110}, kNothingDrawn), 0);
    layout_.SetClientSize(0, 0);
    Paint();
    EXPECT_EQ(picture_.Count({0, 0, 200, 110}, kNothingDrawn), 0) << "without room for cells";
}

TEST_F(GridPainting, AsksOnlyForCellsThatCanBeSeen) {
    layout_.ScrollToRows(500);
    CountingCells cells(model_);
    Paint(cells);
    std::set<std::pair<int, int>> visible;
    for (const int row : {0, 501, 502, 503, 504, 505}) {
        visible.insert({row, 0});
        visible.insert({row, 1});
    }
    EXPECT_EQ(cells.Asked(), visible);
}

TEST_F(GridPainting, AsksOnlyForCellsOfTheArea) {
    area_ = {90, 25, 100, 35};
    CountingCells cells(model_);
    Paint(cells);
    EXPECT_EQ(cells.Asked(), (std::set<std::pair<int, int>>{{1, 1}}));
}

TEST_F(GridPainting, FramesTheCurrentCell) {
    selection_.MoveTo({2, 1}, ValueCells());
    Paint();
    const GridRect cell = layout_.CellRect({2, 1});
    EXPECT_EQ(picture_.At(cell.left, cell.top), kColours.highlight);
    EXPECT_EQ(picture_.At(cell.left + 1, cell.top + 1), kColours.highlight);
    EXPECT_EQ(picture_.At(cell.left + 2, cell.top + 2), kColours.window);
    EXPECT_EQ(picture_.At(cell.right - 2, cell.bottom - 2), kColours.highlight);
    isFocused_ = false;
    Paint();
    EXPECT_EQ(picture_.At(cell.left, cell.top), kColours.highlight);
    EXPECT_EQ(picture_.At(cell.left + 1, cell.top + 1), kColours.window) << "thinner";
}

TEST_F(GridPainting, HighlightsARange) {
    model_.SetItemText(2, 1, "MMM");
    selection_.MoveTo({2, 1}, ValueCells());
    selection_.ExtendTo(3, ValueCells());
    Paint();
    EXPECT_EQ(Ground(2, 1), kColours.highlight);
    EXPECT_TRUE(ShowsText(2, 1, kColours.highlightText));
    EXPECT_EQ(Ground(3, 1), kColours.highlight);
    EXPECT_EQ(Ground(4, 1), kColours.window);
    EXPECT_EQ(Ground(2, 0), kColours.window);
}

TEST_F(GridPainting, IsGreyWhenDisabled) {
    isEnabled_ = false;
    selection_.MoveTo({2, 1}, ValueCells());
    Paint();
    EXPECT_EQ(Ground(1, 0), kColours.face);
    EXPECT_TRUE(ShowsText(1, 0, kColours.greyText));
    EXPECT_EQ(picture_.Count({0, 0, 200, 110}, kColours.highlight), 0);
}

TEST_F(GridPainting, PlacesTextsByTheirFormat) {
    const GridRect cell = layout_.CellRect({1, 1});
    const GridRect left = {cell.left, cell.top, cell.left + 20, cell.bottom};
    const GridRect right = {cell.right - 20, cell.top, cell.right, cell.bottom};
    model_.SetItemText(1, 1, "MM");
    model_.SetItemFormat(1, 1, kGridTextSingleLine);
    Paint();
    EXPECT_GT(picture_.Count(left, kColours.windowText), 0);
    EXPECT_EQ(picture_.Count(right, kColours.windowText), 0);
    EXPECT_EQ(
        picture_.Count({cell.left, cell.bottom - 6, cell.right, cell.bottom}, kColours.windowText),
        0)
        << "at the top";
    model_.SetItemFormat(1, 1, kGridTextSingleLine | kGridTextRight);
    Paint();
    EXPECT_EQ(picture_.Count(left, kColours.windowText), 0);
    EXPECT_GT(picture_.Count(right, kColours.windowText), 0);
    model_.SetItemFormat(1, 1, kGridTextSingleLine | kGridTextCentred);
    Paint();
    EXPECT_EQ(picture_.Count(left, kColours.windowText), 0);
    EXPECT_EQ(picture_.Count(right, kColours.windowText), 0);
    EXPECT_TRUE(ShowsText(1, 1, kColours.windowText));
}

TEST_F(GridPainting, BreaksTextsThatAreNoSingleLine) {
    model_.SetItemText(1, 1, "M\nM");
    model_.SetItemFormat(1, 1, 0);
    layout_.SetRowHeight(40);
    Paint();
    const GridRect cell = layout_.CellRect({1, 1});
    EXPECT_GT(picture_.Count({cell.left, cell.top + 18, cell.right, cell.bottom - 3},
                             kColours.windowText),
              0);
}

TEST_F(GridPainting, LongTextsStayInTheirCell) {
    model_.SetItemText(1, 0, std::string(1'000'000, 'M'));
    model_.SetItemText(0, 0, "");
    Paint();
    EXPECT_TRUE(ShowsText(1, 0, kColours.windowText));
    EXPECT_EQ(picture_.Count(layout_.CellRect({1, 1}), kColours.windowText), 0);
}

TEST_F(GridPainting, ColumnsDisappearBelowTheFixedOnes) {
    model_.SetColumnCount(4);
    model_.SetFixedColumnCount(1);
    model_.SetItemText(1, 1, "MMMMMMMM");
    model_.SetItemText(1, 0, "");
    layout_.SetShape(model_);
    layout_.ScrollToPixels(20);
    Paint();
    EXPECT_EQ(picture_.Count(layout_.CellRect({1, 0}), kColours.windowText), 0);
    EXPECT_GT(picture_.Count(layout_.VisiblePart({1, 1}), kColours.windowText), 0);
}

TEST_F(GridPainting, ShowsMarksAndArrows) {
    model_.SetCellType(1, 1, GridCellKind::Check);
    Paint();
    const GridRect box = CheckBoxRect(WithoutLine(layout_.CellRect({1, 1})), {20, 3, 13, 13, 2, 4});
    const int clear = picture_.Count(box, picture_.At(box.left + 6, box.top + 3));
    model_.SetItemState(1, 1, kGridCellChecked);
    Paint();
    EXPECT_NE(picture_.Count(box, picture_.At(box.left + 6, box.top + 3)), clear);
    model_.SetCellType(2, 1, GridCellKind::Combo);
    Paint();
    EXPECT_TRUE(ShowsText(2, 1, kColours.windowText)) << "the arrow";
    model_.SetItemState(2, 1, kGridCellReadOnly);
    Paint();
    EXPECT_FALSE(ShowsText(2, 1, kColours.windowText)) << "nothing to choose";
}

TEST_F(GridPainting, LeavesTheCanvasAsItWas) {
    SetTextColor(picture_.Canvas(), 0x00010203);
    const HGDIOBJ font = GetCurrentObject(picture_.Canvas(), OBJ_FONT);
    Paint();
    EXPECT_EQ(GetTextColor(picture_.Canvas()), 0x00010203U);
    EXPECT_EQ(GetCurrentObject(picture_.Canvas(), OBJ_FONT), font);
}

TEST(GridLook, SizesFollowTheDotsPerInch) {
    int before = 0;
    for (const int dpi : {96, 144, 192}) {
        GridFont font;
        font.SetDpi(dpi);
        const GridMetrics metrics = MeasureGrid(font.Get(), dpi);
        LOGFONTA description = {};
        GetObjectA(font.Get(), sizeof description, &description);
        EXPECT_GT(metrics.rowHeight, before + before / 4);
        EXPECT_GE(metrics.rowHeight, std::abs(description.lfHeight) + 2 * dpi / 96);
        EXPECT_EQ(metrics.padding, 3 * dpi / 96 + (dpi == 144 ? 1 : 0)) << "4.5 is 5";
        EXPECT_EQ(metrics.frame, 2 * dpi / 96);
        before = metrics.rowHeight;
    }
}

TEST(GridLook, TheGridFollowsTheDotsPerInch) {
    GridDialog dialog;
    SendMessageA(dialog.GridWindow(), WM_SETFONT, 0, 0);
    const int height = dialog.Grid().GetRowHeight(0);
    dialog.Grid().SetDpi(192);
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 240);
    EXPECT_GT(dialog.Grid().GetRowHeight(0), height * 3 / 2);
    dialog.Grid().SetDpi(96);
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 120);
    EXPECT_EQ(dialog.Grid().GetRowHeight(0), height);
    constexpr UINT kDpiChanged = 0x02E0;
    SendMessageA(dialog.GridWindow(), kDpiChanged, MAKEWPARAM(144, 144), 0);
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 180);
    dialog.Grid().SetDpi(96);
    dialog.Grid().SetDpi(0);
    EXPECT_EQ(dialog.Grid().GetColumnWidth(0), 120);
}

TEST(GridLook, TheSetFontIsUsedAndTold) {
    GridDialog dialog;
    const HFONT large =
        CreateFontA(-40, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "MS Shell Dlg");
    SendMessageA(dialog.GridWindow(), WM_SETFONT, reinterpret_cast<WPARAM>(large), TRUE);
    EXPECT_EQ(SendMessageA(dialog.GridWindow(), WM_GETFONT, 0, 0),
              reinterpret_cast<LRESULT>(large));
    EXPECT_GE(dialog.Grid().GetRowHeight(1), 44);
    SendMessageA(dialog.GridWindow(), WM_SETFONT, 0, TRUE);
    EXPECT_EQ(SendMessageA(dialog.GridWindow(), WM_GETFONT, 0, 0), 0);
    EXPECT_LT(dialog.Grid().GetRowHeight(1), 44);
    DeleteObject(large);
}

/// Gives the user other colours for as long as it lives.
class OtherColours {
  public:
    OtherColours(std::initializer_list<std::pair<int, COLORREF>> colours) {
        for (const auto& [index, colour] : colours) {
            before_.emplace_back(index, GetSysColor(index));
            SetSysColors(1, &index, &colour);
        }
    }
    ~OtherColours() {
        for (const auto& [index, colour] : before_) {
            SetSysColors(1, &index, &colour);
        }
    }
    OtherColours(const OtherColours&) = delete;
    OtherColours& operator=(const OtherColours&) = delete;

  private:
    std::vector<std::pair<int, COLORREF>> before_;
};

TEST(GridLook, HighContrastComesThroughAtOnce) {
    GridDialog dialog;
    const OtherColours highContrast({{COLOR_WINDOW, 0x00000000},
                                     {COLOR_WINDOWTEXT, 0x00FFFFFF},
                                     {COLOR_BTNFACE, 0x00000010},
                                     {COLOR_BTNTEXT, 0x0000FF00},
                                     {COLOR_HIGHLIGHT, 0x00FFFF00}});
    SendMessageA(dialog.GridWindow(), WM_SYSCOLORCHANGE, 0, 0);
    const Picture picture(300, 100);
    test::Draw(dialog.GridWindow(), picture);
    const GridLayout& layout = dialog.Grid().Layout();
    const GridRect value = layout.CellRect({2, 1});
    EXPECT_EQ(picture.At(value.right - 4, value.bottom - 4), 0x00000000U);
    EXPECT_GT(picture.Count(value, 0x00FFFFFF), 0);
    EXPECT_GT(picture.Count(layout.CellRect({0, 0}), 0x0000FF00), 0);
    EXPECT_GT(picture.Count(layout.CellRect({1, 1}), 0x00FFFF00), 0) << "the current cell's frame";
}

TEST(GridLook, TheWindowShowsWhatThePainterDraws) {
    GridDialog dialog;
    dialog.Model().SetItemBackColour(2, 1, 0x00030201);
    dialog.Grid().Refresh();
    UpdateWindow(dialog.GridWindow());
    const GridRect cell = dialog.Grid().Layout().CellRect({2, 1});
    const HDC canvas = GetDC(dialog.GridWindow());
    EXPECT_EQ(GetPixel(canvas, cell.right - 4, cell.bottom - 4), 0x00030201U);
    ReleaseDC(dialog.GridWindow(), canvas);
}

}  // namespace
}  // namespace orvell::ui
