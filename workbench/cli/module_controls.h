#pragma once

#include <windows.h>

namespace workbench::cli {

// Numbers of the module's controls, part of what it promises to those who drive it.
constexpr int kBoxWidthEdit = 1001;
constexpr int kVectorCheck = 1002;
constexpr int kVectorLengthEdit = 1003;
constexpr int kValueGrid = 1007;
constexpr int kTransferProgress = 1010;
constexpr int kFormatBox = 1011;

/// True for the parameter dialog and the transfer dialog, false for a message box.
[[nodiscard]] inline bool IsModuleDialog(HWND window) {
    return GetDlgItem(window, kValueGrid) != nullptr ||
           GetDlgItem(window, kTransferProgress) != nullptr;
}

}  // namespace workbench::cli
