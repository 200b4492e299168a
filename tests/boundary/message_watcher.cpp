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

bool HasButton(HWND box, int button) {
    const HWND window = GetDlgItem(box, button);
    return window != nullptr && (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

bool IsQuestion(HWND box) {
    return HasButton(box, IDYES) && HasButton(box, IDNO) && !HasButton(box, IDOK);
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

void MessageWatcher::Keep(HWND window) {
    boxes_.push_back({WindowText(window), WindowText(GetDlgItem(window, kTextControl)),
                      GetWindow(window, GW_OWNER), IsQuestion(window)});
}

LRESULT CALLBACK MessageWatcher::OnHook(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && IsMessageBox(window)) {
        const int answer = IsQuestion(window) ? current_->answer_ : IDOK;
        PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(answer), 0);
    }
    if (code == HCBT_DESTROYWND && IsMessageBox(window)) {
        current_->Keep(window);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace orvell::test
