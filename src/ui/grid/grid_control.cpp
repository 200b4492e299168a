#include "ui/grid/grid_control.h"

#include "ui/grid/grid_accessible.h"

namespace orvell::ui {
namespace {

POINT PointIn(LPARAM lParam) {
    return {static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
}

// WM_DPICHANGED, since Windows 8.1, and WM_DPICHANGED_AFTERPARENT, since Windows 10
constexpr UINT kDpiChanged = 0x02E0;
constexpr UINT kDpiChangedAfterParent = 0x02E3;

}  // namespace

CGridCtrl::CGridCtrl(HWND window) : window_(window), dpi_(DpiOf(window)) {
    // An editor must not be drawn over.
    SetWindowLongPtrA(window, GWL_STYLE, GetWindowLongPtrA(window, GWL_STYLE) | WS_CLIPCHILDREN);
    TakeSystemLook();
}

CGridCtrl::~CGridCtrl() = default;

LRESULT CGridCtrl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_DESTROY:
            OnDestroy();
            return 0;
        case WM_PAINT:
            OnPaint();
            return 0;
        case WM_PRINTCLIENT:
            PaintArea(reinterpret_cast<HDC>(wParam),
                      {0, 0, layout_.ClientWidth(), layout_.ClientHeight()});
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // painting covers every pixel
        case WM_SIZE:
            TakeClientSize();
            UpdateScrollBars();
            return 0;
        case WM_SETFONT:
            OnSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_.WhatWasSet());
        case kDpiChanged:
            SetDpi(LOWORD(wParam));
            return 0;
        case kDpiChangedAfterParent:
            SetDpi(DpiOf(window_));
            return 0;
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            TakeSystemLook();
            return 0;
        case WM_GETOBJECT:
            return OnGetObject(wParam, lParam);
        case kGridEditorMessage:
            OnEditorEvent(static_cast<GridEditEvent>(wParam), lParam);
            return 0;
        default:
            return OnInput(message, wParam, lParam);
    }
}

LRESULT CGridCtrl::OnInput(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETDLGCODE:
            return DialogCode(reinterpret_cast<const MSG*>(lParam));
        case WM_KEYDOWN:
            return OnKeyDown(wParam) ? 0 : OnDefault(message, wParam, lParam);
        case WM_SYSKEYDOWN:
            return OnSystemKeyDown(wParam) ? 0 : OnDefault(message, wParam, lParam);
        case WM_CHAR:
            return OnCharacter(wParam) ? 0 : OnDefault(message, wParam, lParam);
        case WM_LBUTTONDOWN:
            OnButtonDown(PointIn(lParam), (wParam & MK_SHIFT) != 0);
            return 0;
        case WM_LBUTTONDBLCLK:
            OnDoubleClick(PointIn(lParam));
            return 0;
        case WM_MOUSEMOVE:
            OnMouseMove(PointIn(lParam));
            return 0;
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED:
            EndDrag();
            return 0;
        case WM_TIMER:
            OnDragTimer();
            return 0;
        case WM_SETCURSOR:
            return OnSetCursor() ? TRUE : OnDefault(message, wParam, lParam);
        case WM_MOUSEWHEEL:
            if (layout_.LargestScrolledRows() == 0) {
                return OnDefault(message, wParam, lParam);  // the parent may scroll
            }
            OnWheel(wParam);
            return 0;
        case WM_VSCROLL:
            OnScroll(SB_VERT, wParam);
            return 0;
        case WM_HSCROLL:
            OnScroll(SB_HORZ, wParam);
            return 0;
        case WM_COPY:
            Copy();
            return 0;
        case WM_PASTE:
            Paste();
            return 0;
        default:
            return OnDefault(message, wParam, lParam);
    }
}

/// Messages that change the window's state and then go on as usual.
LRESULT CGridCtrl::OnDefault(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ENABLE:
            EndEdit(true);
            EndDrag();
            Invalidate();
            break;
        case WM_SETFOCUS:
            selection_.KeepWithin(ValueCells());
            Invalidate(selection_.Current());
            Tell(EVENT_OBJECT_FOCUS, selection_.Current());
            break;
        case WM_KILLFOCUS:
            Invalidate(selection_.Current());
            break;
        case WM_COMMAND:
            if (editor_ != nullptr && reinterpret_cast<HWND>(lParam) == editor_->Window()) {
                editor_->OnCommand(HIWORD(wParam));
                return 0;
            }
            break;
        default:
            break;
    }
    return window_ == nullptr ? 0 : DefWindowProcA(window_, message, wParam, lParam);
}

/// An edit that is open when the window goes is given up: the parent may be half gone already.
void CGridCtrl::OnDestroy() {
    editor_.reset();
    EndDrag();
    if (accessible_ != nullptr) {
        accessible_->Disconnect();
        accessible_->Release();
        accessible_ = nullptr;
    }
}

void CGridCtrl::OnGone() {
    window_ = nullptr;
}

}  // namespace orvell::ui
