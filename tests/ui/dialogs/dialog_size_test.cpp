#include <windows.h>

#include <algorithm>

#include "dialog_fixture.h"

namespace orvell::ui {
namespace {

using test::DialogUser;

SIZE SizeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

SIZE ClientOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

LONG Middle(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return (place.top + place.bottom) / 2;
}

RECT WorkArea(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

class DialogSizeTest : public DialogTest {
  protected:
    static void Resize(const DialogUser& user, HWND dialog, LONG width, LONG height) {
        user.OnThread([=] {
            SetWindowPos(dialog, nullptr, 0, 0, width, height,
                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        });
    }

    /// Rows of pixels that the grid shows beyond its last row; negative when it must scroll.
    static LONG SpareHeight(const DialogUser& user, HWND dialog) {
        LONG spare = 0;
        user.OnThread([&] {
            CGridCtrl& grid = GridOf(dialog);
            spare = ClientOf(grid.Window()).cy - grid.Model().GetRowCount() * grid.GetRowHeight(0);
        });
        return spare;
    }
};

TEST_F(DialogSizeTest, TheHeightFollowsTheRows) {
    OwnedDialogRecord owned(kInt, Bytes(20), 10);
    owned.record.mode = 1;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_EQ(SpareHeight(user, dialog), 0);
        const LONG before = SizeOf(dialog).cy;
        const LONG middle = Middle(dialog);
        user.SetText(dialog, ORVELL_VECTOR_LENGTH_EDIT, "14");
        EXPECT_EQ(SpareHeight(user, dialog), 0);
        LONG rowHeight = 0;
        user.OnThread([&] { rowHeight = GridOf(dialog).GetRowHeight(0); });
        EXPECT_EQ(SizeOf(dialog).cy, before + 4 * rowHeight);
        EXPECT_LE(std::abs(Middle(dialog) - middle), 1);
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogSizeTest, ManyRowsStayOnTheScreen) {
    OwnedDialogRecord owned(kLong, Bytes(400));
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        RECT place{};
        GetWindowRect(dialog, &place);
        const RECT work = WorkArea(dialog);
        EXPECT_EQ(place.bottom - place.top,
                  work.bottom - work.top - 2 * GetSystemMetrics(SM_CYCAPTION));
        EXPECT_GE(place.top, work.top + 10);
        EXPECT_LE(place.bottom, work.bottom);
        EXPECT_LT(SpareHeight(user, dialog), 0);
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogSizeTest, TheSmallestSizeShowsTwoRows) {
    OwnedDialogRecord owned(kInt, {1, 0});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        EXPECT_EQ(SpareHeight(user, dialog), 0);
        MINMAXINFO info{};
        user.OnThread(
            [&] { SendMessageW(dialog, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info)); });
        EXPECT_EQ(info.ptMinTrackSize.x, SizeOf(dialog).cx);
        EXPECT_EQ(info.ptMinTrackSize.y, SizeOf(dialog).cy);
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogSizeTest, TheGridTakesAllTheRoom) {
    OwnedDialogRecord owned(kInt, {1, 0});
    owned.record.mode = 1;
    owned.record.format = 0x80;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        const int moving[] = {ORVELL_VECTOR_CHECK,
                              ORVELL_VECTOR_LENGTH_EDIT,
                              ORVELL_VECTOR_LENGTH_SPIN,
                              ORVELL_FORMAT_BOX,
                              ORVELL_FORMAT_LABEL,
                              IDOK,
                              IDCANCEL};
        std::vector<RECT> places;
        for (const int control : moving) {
            places.push_back(PlaceOf(dialog, control));
        }
        const RECT grid = PlaceOf(dialog, ORVELL_VALUE_GRID);
        const RECT width = PlaceOf(dialog, ORVELL_BOX_WIDTH_EDIT);
        const SIZE size = SizeOf(dialog);
        Resize(user, dialog, size.cx + 120, size.cy + 70);
        for (std::size_t i = 0; i < places.size(); ++i) {
            const RECT now = PlaceOf(dialog, moving[i]);
            EXPECT_EQ(now.right, places[i].right + 120) << moving[i];
            EXPECT_EQ(now.left, places[i].left + 120) << moving[i];
            const bool isButton = moving[i] == IDOK || moving[i] == IDCANCEL;
            EXPECT_EQ(now.top, places[i].top + (isButton ? 70 : 0)) << moving[i];
        }
        const RECT grown = PlaceOf(dialog, ORVELL_VALUE_GRID);
        EXPECT_EQ(grown.left, grid.left);
        EXPECT_EQ(grown.top, grid.top);
        EXPECT_EQ(grown.right, grid.right + 120);
        EXPECT_EQ(grown.bottom, grid.bottom + 70);
        EXPECT_EQ(PlaceOf(dialog, ORVELL_BOX_WIDTH_EDIT).left, width.left);
        Resize(user, dialog, size.cx, size.cy);
        const RECT back = PlaceOf(dialog, ORVELL_VALUE_GRID);
        EXPECT_EQ(back.right, grid.right);
        EXPECT_EQ(back.bottom, grid.bottom);
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogSizeTest, ColumnsShareTheWidthBesideTheScrollBar) {
    OwnedDialogRecord owned(kInt, {1, 0});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        const SIZE size = SizeOf(dialog);
        user.OnThread([&] {
            CGridCtrl& grid = GridOf(dialog);
            const int room =
                static_cast<int>(ClientOf(grid.Window()).cx) - GetSystemMetrics(SM_CXVSCROLL);
            EXPECT_LE(std::abs(grid.GetColumnWidth(0) - grid.GetColumnWidth(1)), 1);
            EXPECT_EQ(grid.GetColumnWidth(0) + grid.GetColumnWidth(1), room);
            grid.SetColumnWidth(0, room / 4);
            grid.SetColumnWidth(1, room - room / 4);
        });
        Resize(user, dialog, size.cx + 100, size.cy);
        user.OnThread([&] {
            const CGridCtrl& grid = GridOf(dialog);
            EXPECT_NEAR(grid.GetColumnWidth(1) / 3.0, grid.GetColumnWidth(0), 2)
                << "the ratio that the user has chosen stays";
        });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogSizeTest, TheCornerIsASizeGrip) {
    OwnedDialogRecord owned(kInt, {1, 0});
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        POINT corner{ClientOf(dialog).cx - 3, ClientOf(dialog).cy - 3};
        POINT middle{ClientOf(dialog).cx / 2, ClientOf(dialog).cy - 3};
        user.OnThread([&] {
            ClientToScreen(dialog, &corner);
            ClientToScreen(dialog, &middle);
            EXPECT_EQ(SendMessageW(dialog, WM_NCHITTEST, 0, MAKELPARAM(corner.x, corner.y)),
                      HTBOTTOMRIGHT);
            EXPECT_EQ(SendMessageW(dialog, WM_NCHITTEST, 0, MAKELPARAM(middle.x, middle.y)),
                      HTCLIENT);
        });
        user.Press(dialog, IDCANCEL);
    });
}

TEST_F(DialogSizeTest, StartsOverItsOwner) {
    const HWND owner = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 100, 200, 700, 500,
                                     nullptr, nullptr, nullptr, nullptr);
    OwnedDialogRecord owned(kInt, {1, 0});
    owned.record.owner = owner;
    EditWith(owned, [&](const DialogUser& user) {
        const HWND dialog = ParameterDialogOf(user);
        RECT place{};
        GetWindowRect(dialog, &place);
        EXPECT_LE(std::abs((place.left + place.right) / 2 - 450), 1);
        EXPECT_LE(std::abs(Middle(dialog) - 450), 1);
        user.Press(dialog, IDCANCEL);
    });
    DestroyWindow(owner);
}

}  // namespace
}  // namespace orvell::ui
