#pragma once

#include <string_view>

#include "cli/dialog_script.h"

namespace workbench::cli {

// What the keyboard would send, to whatever window has it.

void SendKey(const KeyStroke& stroke);
void SendText(std::wstring_view text);

}  // namespace workbench::cli
