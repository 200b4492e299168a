#pragma once

#include <windows.h>

namespace orvell::ui {

/// Paints a dialog's own ground: the size grip in its lower right corner or, when the dialog is
/// minimised, its symbol. Answers WM_PAINT.
void PaintSizeGrip(HWND dialog);

/// True when a point of the screen lies on the grip. Its place is answered with HTBOTTOMRIGHT.
[[nodiscard]] bool IsOnSizeGrip(HWND dialog, POINT point);

}  // namespace orvell::ui
