#include "ui/grid/grid_look.h"

#include <algorithm>

#include "ui/grid/grid_layout.h"

namespace orvell::ui {
namespace {

bool IsHighContrast() {
    HIGHCONTRASTA contrast = {};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

/// The system keeps its fonts for the dots per inch that it began with.
int SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : kUsualDpi;
}

HFONT MakeMessageFont(int dpi) {
    NONCLIENTMETRICSA metrics = {};
    // Without the member that older systems do not know.
    metrics.cbSize = offsetof(NONCLIENTMETRICSA, iPaddedBorderWidth);
    if (SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0) == 0) {
        return nullptr;
    }
    LOGFONTA& font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, dpi, SystemDpi());
    return CreateFontIndirectA(&font);
}

int TextHeight(HFONT font) {
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, font);
    TEXTMETRICA metrics = {};
    GetTextMetricsA(screen, &metrics);
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    return std::max<int>(metrics.tmHeight, 1);
}

}  // namespace

GridColours SystemGridColours() {
    // In high contrast the light line colour may be the window's own.
    const int line = IsHighContrast() ? COLOR_BTNSHADOW : COLOR_3DLIGHT;
    return {
        .window = GetSysColor(COLOR_WINDOW),
        .windowText = GetSysColor(COLOR_WINDOWTEXT),
        .face = GetSysColor(COLOR_BTNFACE),
        .faceText = GetSysColor(COLOR_BTNTEXT),
        .line = GetSysColor(line),
        .highlight = GetSysColor(COLOR_HIGHLIGHT),
        .highlightText = GetSysColor(COLOR_HIGHLIGHTTEXT),
        .greyText = GetSysColor(COLOR_GRAYTEXT),
    };
}

int DpiOf(HWND window) {
    using GetDpiForWindowFunction = UINT(WINAPI*)(HWND);
    // Windows has it since version 10.
    const FARPROC found = GetProcAddress(GetModuleHandleA("user32.dll"), "GetDpiForWindow");
    if (found != nullptr) {
        const auto getDpiForWindow =
            reinterpret_cast<GetDpiForWindowFunction>(reinterpret_cast<void*>(found));
        if (const UINT dpi = getDpiForWindow(window); dpi != 0) {
            return static_cast<int>(dpi);
        }
    }
    return SystemDpi();
}

int ScaledForDpi(int pixels, int dpi) {
    return MulDiv(pixels, dpi, kUsualDpi);
}

GridFont::~GridFont() {
    DeleteObject(made_);
}

void GridFont::SetDpi(int dpi) {
    DeleteObject(made_);
    made_ = MakeMessageFont(dpi);
}

GridMetrics MeasureGrid(HFONT font, int dpi) {
    const int textHeight = TextHeight(font);
    return {
        .rowHeight = textHeight + 2 * ScaledForDpi(2, dpi) + kGridLine,
        .padding = ScaledForDpi(3, dpi),
        .checkBox = std::min(textHeight, ScaledForDpi(13, dpi)),
        .arrow = ScaledForDpi(13, dpi),
        .frame = ScaledForDpi(2, dpi),
        .borderReach = ScaledForDpi(4, dpi),
    };
}

}  // namespace orvell::ui
