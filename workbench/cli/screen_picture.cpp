#include "cli/screen_picture.h"

#include <windows.h>

#include <objidl.h>

#include <algorithm>  // the next header uses min and max, which NOMINMAX takes away
#include <memory>

namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>

namespace workbench::cli {
namespace {

/// Windows' own encoder of PNG files.
constexpr CLSID kPngEncoder{
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

BOOL CALLBACK AddWindow(HWND window, LPARAM result) {
    auto& covered = *reinterpret_cast<RECT*>(result);
    RECT rectangle{};
    if (IsWindowVisible(window) != FALSE && GetWindowRect(window, &rectangle) != FALSE) {
        UnionRect(&covered, &covered, &rectangle);
    }
    return TRUE;
}

/// The rectangle of the screen that the thread's windows take.
RECT CoveredRectangle() {
    RECT covered{};
    EnumThreadWindows(GetCurrentThreadId(), AddWindow, reinterpret_cast<LPARAM>(&covered));
    return covered;
}

struct DeleteBitmap {
    using pointer = HBITMAP;
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<HBITMAP, DeleteBitmap>;

Bitmap CopyOfScreen(const RECT& place) {
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    Bitmap bitmap(CreateCompatibleBitmap(screen, width, height));
    const HGDIOBJ before = SelectObject(memory, bitmap.get());
    BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

bool SavePng(HBITMAP bitmap, const std::wstring& path) {
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) {
        return false;
    }
    const bool isSaved = [&] {
        Gdiplus::Bitmap image(bitmap, nullptr);
        return image.Save(path.c_str(), &kPngEncoder, nullptr) == Gdiplus::Ok;
    }();  // gone before its library is
    Gdiplus::GdiplusShutdown(token);
    return isSaved;
}

}  // namespace

bool KeepScreenPicture(const std::wstring& path) {
    const RECT place = CoveredRectangle();
    return IsRectEmpty(&place) == FALSE && SavePng(CopyOfScreen(place).get(), path);
}

}  // namespace workbench::cli
