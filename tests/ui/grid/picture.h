#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

#include "ui/grid/grid_layout.h"

namespace orvell::test {

/// A canvas of 32 bits a pixel whose pixels can be read.
class Picture {
  public:
    Picture(int width, int height);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    [[nodiscard]] HDC Canvas() const { return canvas_; }
    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }

    void Clear(ui::Colour colour) const;
    [[nodiscard]] ui::Colour At(int x, int y) const;
    /// How many pixels of the rectangle have this colour.
    [[nodiscard]] int Count(const ui::GridRect& rect, ui::Colour colour) const;

  private:
    int width_;
    int height_;
    HDC canvas_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
    std::uint32_t* pixels_ = nullptr;
};

/// What a window's client area shows, drawn by WM_PRINTCLIENT.
void Draw(HWND window, const Picture& picture);

}  // namespace orvell::test
