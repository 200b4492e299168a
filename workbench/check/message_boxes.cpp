#include "check/message_boxes.h"

#include <array>
#include <string_view>
#include <utility>

namespace workbench::check {
namespace {

MessageBoxes* current = nullptr;

bool IsDialog(HWND window) {
    std::array<wchar_t, 64> name{};
    const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return std::wstring_view(name.data(), static_cast<std::size_t>(length)) == L"#32770";
}

}  // namespace

MessageBoxes::MessageBoxes()
    : hook_(SetWindowsHookExW(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId())) {
    current = this;
}

MessageBoxes::~MessageBoxes() {
    UnhookWindowsHookEx(hook_);
    current = nullptr;
}

bool MessageBoxes::CanBeShown() {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        nullptr, nullptr);
    return window != nullptr && DestroyWindow(window) != FALSE;
}

std::size_t MessageBoxes::TakeCount() {
    return std::exchange(count_, 0);
}

LRESULT CALLBACK MessageBoxes::OnWindowEvent(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && current != nullptr && IsDialog(window)) {
        current->Answer(window);
    }
    if (code == HCBT_DESTROYWND && current != nullptr && window == current->lastBox_) {
        current->lastBox_ = nullptr;  // handles come again
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

/// A box is activated again whenever the focus comes back to it.
void MessageBoxes::Answer(HWND box) {
    if (box == lastBox_) {
        return;
    }
    lastBox_ = box;
    ++count_;
    for (const int button : {IDNO, answer_, IDCANCEL, IDOK}) {
        if (GetDlgItem(box, button) != nullptr) {
            PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
            return;
        }
    }
}

}  // namespace workbench::check
