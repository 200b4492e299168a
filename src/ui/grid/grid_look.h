#pragma once

#include <windows.h>

#include "ui/grid/grid_cell.h"

namespace orvell::ui {

/// The colours of a grid; all come from the system.
struct GridColours {
    Colour window;
    Colour windowText;
    Colour face;
    Colour faceText;
    Colour line;
    Colour highlight;
    Colour highlightText;
    Colour greyText;
};

/// The user's present colours.
[[nodiscard]] GridColours SystemGridColours();

inline constexpr int kUsualDpi = 96;

/// Dots per inch of the screen that this window is drawn for.
[[nodiscard]] int DpiOf(HWND window);

/// A length that is given for 96 dots per inch.
[[nodiscard]] int ScaledForDpi(int pixels, int dpi);

/// The grid's font: one that was set, which stays its owner's, or else the system's font for
/// messages, made here for the screen's dots per inch.
class GridFont {
  public:
    GridFont() = default;
    ~GridFont();
    GridFont(const GridFont&) = delete;
    GridFont& operator=(const GridFont&) = delete;

    /// Null for the system's font again.
    void Set(HFONT font) { set_ = font; }
    void SetDpi(int dpi);
    [[nodiscard]] HFONT Get() const { return set_ == nullptr ? made_ : set_; }
    /// What was set, null when nothing was: the answer to WM_GETFONT.
    [[nodiscard]] HFONT WhatWasSet() const { return set_; }

  private:
    HFONT set_ = nullptr;
    HFONT made_ = nullptr;
};

/// Sizes that follow from font and dots per inch, in pixels.
struct GridMetrics {
    int rowHeight;
    int padding;      ///< between a cell's edge and its text
    int checkBox;     ///< side length of a check box
    int arrow;        ///< width of a combo cell's arrow
    int frame;        ///< thickness of the current cell's frame
    int borderReach;  ///< how near to a column's border the mouse must be to drag it
};

[[nodiscard]] GridMetrics MeasureGrid(HFONT font, int dpi);

}  // namespace orvell::ui
