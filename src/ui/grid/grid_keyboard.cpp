#include "ui/grid/grid_control.h"

namespace orvell::ui {
namespace {

static_assert(grid_key::kPageUp == VK_PRIOR && grid_key::kPageDown == VK_NEXT);
static_assert(grid_key::kEnd == VK_END && grid_key::kHome == VK_HOME);
static_assert(grid_key::kLeft == VK_LEFT && grid_key::kUp == VK_UP);
static_assert(grid_key::kRight == VK_RIGHT && grid_key::kDown == VK_DOWN);

constexpr WPARAM kFirstPrintable = ' ';
constexpr WPARAM kDelete = 0x7F;  // Ctrl+Backspace

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

/// Tab and Escape stay the dialog's, Enter where there is nothing to edit as well.
LRESULT CGridCtrl::DialogCode(const MSG* message) const {
    LRESULT wanted = DLGC_WANTARROWS | DLGC_WANTCHARS;
    if (message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN &&
        CanChange(selection_.Current())) {
        wanted |= DLGC_WANTMESSAGE;
    }
    return wanted;
}

bool CGridCtrl::OnKeyDown(WPARAM key) {
    const bool isControlDown = IsHeld(VK_CONTROL);
    const bool isShiftDown = IsHeld(VK_SHIFT);
    if (const auto movement = MovementOfKey(static_cast<unsigned>(key), isControlDown)) {
        MoveCurrent(*movement, isShiftDown);
        return true;
    }
    if (key == VK_F2 || key == VK_RETURN) {
        return Activate(selection_.Current(), GridEditStart::WholeText);
    }
    return (isControlDown || isShiftDown) && OnShortcut(key, isShiftDown && !isControlDown);
}

/// Copying and pasting, also by the older keys Ctrl+Insert and Shift+Insert.
bool CGridCtrl::OnShortcut(WPARAM key, bool isShiftDown) {
    if (!isShiftDown && (key == 'C' || key == VK_INSERT)) {
        Copy();
        return true;
    }
    if ((!isShiftDown && key == 'V') || (isShiftDown && key == VK_INSERT)) {
        Paste();
        return true;
    }
    return false;
}

bool CGridCtrl::OnSystemKeyDown(WPARAM key) {
    const GridPosition current = selection_.Current();
    return key == VK_DOWN &&
           model_.GetCellType(current.row, current.column) == GridCellKind::Combo &&
           Activate(current, GridEditStart::DropDown);
}

bool CGridCtrl::OnCharacter(WPARAM character) {
    if (character < kFirstPrintable || character == kDelete) {
        return false;
    }
    const GridPosition current = selection_.Current();
    if (model_.GetCellType(current.row, current.column) == GridCellKind::Check) {
        return character == ' ' && Activate(current, GridEditStart::Nothing);
    }
    if (!Activate(current, GridEditStart::Nothing)) {
        return false;
    }
    SendMessageA(editor_->Window(), WM_CHAR, character, 1);
    return true;
}

}  // namespace orvell::ui
