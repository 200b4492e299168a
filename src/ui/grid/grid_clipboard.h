#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace orvell::ui {

/// Replaces what is on the clipboard, unless another program has it open. It is written as UTF-16:
/// of an ANSI text Windows guesses the code page by the keyboard.
void PutOnClipboard(HWND owner, std::string_view text);

/// The clipboard's text up to its first NUL, in the ANSI code page; empty when there is none.
[[nodiscard]] std::string TextOnClipboard(HWND owner);

}  // namespace orvell::ui
