#include "cli/module_messages.h"

#include <array>
#include <string_view>

#include "cli/module_controls.h"
#include "cli/output.h"
#include "common/code_page.h"

namespace workbench::cli {
namespace {

ModuleMessages* current = nullptr;

constexpr std::wstring_view kDialogClass = L"#32770";

std::wstring ClassOf(HWND window) {
    std::array<wchar_t, 64> name{};
    const int length = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return {name.data(), static_cast<std::size_t>(length)};
}

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

/// The text of a message box: that of its last child that is no button and has one.
BOOL CALLBACK CollectText(HWND child, LPARAM result) {
    if (ClassOf(child) != L"Button" && GetWindowTextLengthW(child) > 0) {
        *reinterpret_cast<std::wstring*>(result) = TextOf(child);
    }
    return TRUE;
}

}  // namespace

ModuleMessages::ModuleMessages()
    : hook_(SetWindowsHookExW(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId())) {
    current = this;
}

ModuleMessages::~ModuleMessages() {
    UnhookWindowsHookEx(hook_);
    current = nullptr;
}

bool ModuleMessages::CanShowWindows() {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                        nullptr, nullptr);
    return window != nullptr && DestroyWindow(window) != FALSE;
}

LRESULT CALLBACK ModuleMessages::OnWindowEvent(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && current != nullptr && !current->isLettingThrough_ &&
        ClassOf(window) == kDialogClass && !IsModuleDialog(window)) {
        current->TakeBox(window);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void ModuleMessages::TakeBox(HWND box) {
    if (box == lastBox_) {
        return;
    }
    lastBox_ = box;
    std::wstring text;
    EnumChildWindows(box, CollectText, reinterpret_cast<LPARAM>(&text));
    texts_.push_back(AnsiFromWide(TextOf(box) + L": " + text));
    const WPARAM answer = GetDlgItem(box, IDOK) != nullptr ? IDOK : IDNO;
    PostMessageW(box, WM_COMMAND, answer, 0);
}

bool ModuleMessages::Report() {
    for (const std::string& text : texts_) {
        PrintError(text);
    }
    const bool any = !texts_.empty();
    texts_.clear();
    lastBox_ = nullptr;
    return any;
}

}  // namespace workbench::cli
