#include "ui/grid/grid_control.h"

namespace orvell::ui {
namespace {

constexpr int kGridOffset = 0;  // of the grid's address among the window's extra bytes

bool IsGridWindow(HWND window, WNDPROC procedure) {
    return IsWindow(window) != 0 &&
           GetClassLongPtrA(window, GCLP_WNDPROC) == reinterpret_cast<ULONG_PTR>(procedure);
}

CGridCtrl* GridOf(HWND window) {
    return reinterpret_cast<CGridCtrl*>(GetWindowLongPtrA(window, kGridOffset));
}

void SetGridOf(HWND window, CGridCtrl* grid) {
    SetWindowLongPtrA(window, kGridOffset, reinterpret_cast<LONG_PTR>(grid));
}

}  // namespace

CGridCtrl* CGridCtrl::FromWindow(HWND window) {
    return IsGridWindow(window, GridWindowClass::Procedure) ? GridOf(window) : nullptr;
}

/// The last use ends the object once its window is gone.
CGridCtrl::Use::~Use() {
    if (--grid_.uses_ == 0 && grid_.window_ == nullptr) {
        const std::unique_ptr<CGridCtrl> ended(&grid_);
    }
}

GridWindowClass::GridWindowClass(HINSTANCE instance) : instance_(instance) {
    WNDCLASSEXA windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = Procedure;
    windowClass.cbWndExtra = sizeof(void*);  // to the object
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kName;
    isRegistered_ = RegisterClassExA(&windowClass) != 0;
}

GridWindowClass::~GridWindowClass() {
    if (isRegistered_) {
        UnregisterClassA(kName, instance_);
    }
}

/// No exception leaves a window procedure: what cannot be done for want of memory is left undone.
LRESULT CALLBACK GridWindowClass::Procedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    try {
        if (message == WM_NCCREATE) {
            SetGridOf(window, std::make_unique<CGridCtrl>(window).release());
        }
        CGridCtrl* const grid = GridOf(window);
        if (grid == nullptr) {
            return DefWindowProcA(window, message, wParam, lParam);
        }
        const CGridCtrl::Use use(*grid);
        const LRESULT result = grid->OnMessage(message, wParam, lParam);
        if (message == WM_NCDESTROY) {
            SetGridOf(window, nullptr);
            grid->OnGone();
        }
        return result;
    } catch (...) {
        return 0;
    }
}

}  // namespace orvell::ui
