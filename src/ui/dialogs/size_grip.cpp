#include "ui/dialogs/size_grip.h"

namespace orvell::ui {

namespace {

RECT GripOf(HWND dialog) {
    RECT grip{};
    GetClientRect(dialog, &grip);
    grip.left = grip.right - GetSystemMetrics(SM_CXVSCROLL);
    grip.top = grip.bottom - GetSystemMetrics(SM_CYHSCROLL);
    return grip;
}

void DrawSymbol(HWND dialog, HDC context) {
    RECT client{};
    GetClientRect(dialog, &client);
    const auto symbol = reinterpret_cast<HICON>(SendMessageW(dialog, WM_GETICON, ICON_BIG, 0));
    DrawIcon(context, (client.right - GetSystemMetrics(SM_CXICON)) / 2,
             (client.bottom - GetSystemMetrics(SM_CYICON)) / 2, symbol);
}

}  // namespace

void PaintSizeGrip(HWND dialog) {
    PAINTSTRUCT paint{};
    const HDC context = BeginPaint(dialog, &paint);
    if (IsIconic(dialog)) {
        DrawSymbol(dialog, context);
    } else {
        RECT grip = GripOf(dialog);
        DrawFrameControl(context, &grip, DFC_SCROLL, DFCS_SCROLLSIZEGRIP);
    }
    EndPaint(dialog, &paint);
}

bool IsOnSizeGrip(HWND dialog, POINT point) {
    const RECT grip = GripOf(dialog);
    ScreenToClient(dialog, &point);
    return PtInRect(&grip, point) != FALSE;
}

}  // namespace orvell::ui
