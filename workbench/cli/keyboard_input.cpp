#include "cli/keyboard_input.h"

#include <windows.h>

#include <ranges>
#include <vector>

namespace workbench::cli {
namespace {

INPUT KeyEvent(std::uint16_t key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    return input;
}

INPUT CharacterEvent(wchar_t character, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
    return input;
}

/// The keys of the block between letters and numbers.
DWORD FlagsOf(std::uint16_t key) {
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE ? KEYEVENTF_EXTENDEDKEY : 0;
}

void Send(std::vector<INPUT>& inputs) {
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

void SendKey(const KeyStroke& stroke) {
    std::vector<INPUT> inputs;
    for (const std::uint16_t key : stroke.held) {
        inputs.push_back(KeyEvent(key, 0));
    }
    inputs.push_back(KeyEvent(stroke.key, FlagsOf(stroke.key)));
    inputs.push_back(KeyEvent(stroke.key, FlagsOf(stroke.key) | KEYEVENTF_KEYUP));
    for (const std::uint16_t key : stroke.held | std::views::reverse) {
        inputs.push_back(KeyEvent(key, KEYEVENTF_KEYUP));
    }
    Send(inputs);
}

void SendText(std::wstring_view text) {
    std::vector<INPUT> inputs;
    for (const wchar_t character : text) {
        inputs.push_back(CharacterEvent(character, 0));
        inputs.push_back(CharacterEvent(character, KEYEVENTF_KEYUP));
    }
    Send(inputs);
}

}  // namespace workbench::cli
