#pragma once

#include <algorithm>

namespace orvell::ui {

/// Where a window begins and how high it is, in pixels of the screen.
struct VerticalPlace {
    int top = 0;
    int height = 0;
};

/// Where a window goes that wants another height: it stays centred on where it was, gets at least
/// `minimumHeight` and, before that, no more than the monitor's work area has room for, and begins
/// a little below the area's top.
[[nodiscard]] inline VerticalPlace FitHeight(const VerticalPlace& window, int wantedHeight,
                                             int minimumHeight, const VerticalPlace& workArea,
                                             int captionHeight) {
    constexpr int kSmallestDistance = 10;
    const int largest = workArea.height - 2 * captionHeight;
    const int height = std::max(std::min(wantedHeight, largest), minimumHeight);
    const int centred = window.top + (window.height - height) / 2;
    const int lowest = workArea.top + workArea.height - height;
    const int highest = workArea.top + kSmallestDistance;
    return {std::max(std::min(centred, lowest), highest), height};
}

}  // namespace orvell::ui
