#include "ui/grid/picture.h"

namespace orvell::test {

Picture::Picture(int width, int height)
    : width_(width), height_(height), canvas_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // the first line on top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* pixels = nullptr;
    bitmap_ = CreateDIBSection(canvas_, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
    pixels_ = static_cast<std::uint32_t*>(pixels);
    before_ = SelectObject(canvas_, bitmap_);
}

Picture::~Picture() {
    SelectObject(canvas_, before_);
    DeleteObject(bitmap_);
    DeleteDC(canvas_);
}

void Picture::Clear(ui::Colour colour) const {
    const RECT all = {0, 0, width_, height_};
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(canvas_, &all, brush);
    DeleteObject(brush);
}

ui::Colour Picture::At(int x, int y) const {
    GdiFlush();
    const std::uint32_t pixel = pixels_[y * width_ + x];
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

int Picture::Count(const ui::GridRect& rect, ui::Colour colour) const {
    int count = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x) {
            count += At(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

void Draw(HWND window, const Picture& picture) {
    SendMessageA(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.Canvas()), PRF_CLIENT);
}

}  // namespace orvell::test
