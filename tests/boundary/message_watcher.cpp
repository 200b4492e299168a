#include "message_watcher.h"

namespace orvell::test {

namespace {

std::string WindowText(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

bool IsMessageBox(HWND window) {
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    return std::wstring(name) == L"#32770";
}

constexpr int kTextControl = 0xFFFF;

}  // namespace

MessageWatcher* MessageWatcher::current_ = nullptr;

MessageWatcher::MessageWatcher()
    : hook_(SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId())) {
    current_ = this;
}

MessageWatcher::~MessageWatcher() {
    UnhookWindowsHookEx(hook_);
    current_ = nullptr;
}

LRESULT CALLBACK MessageWatcher::OnHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && IsMessageBox(window)) {
        const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE));
        current_->boxes_.push_back({WindowText(window),
                                    WindowText(GetDlgItem(window, kTextControl)),
                                    GetWindow(window, GW_OWNER), (style & WS_EX_TOPMOST) != 0});
        PostMessageW(window, WM_COMMAND, IDOK, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace orvell::test
