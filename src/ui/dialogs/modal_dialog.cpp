#include "ui/dialogs/modal_dialog.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace orvell::ui {

namespace {

/// The classes of up-down controls and progress bars.
void LoadCommonControls() {
    INITCOMMONCONTROLSEX wanted{};
    wanted.dwSize = sizeof(wanted);
    wanted.dwICC = ICC_UPDOWN_CLASS | ICC_PROGRESS_CLASS;
    InitCommonControlsEx(&wanted);
}

/// Messages whose result a dialog procedure returns itself, instead of TRUE.
bool ReturnsItsResult(UINT message) {
    return message == WM_QUERYDRAGICON ||
           (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
}

}  // namespace

int ModalDialog::Run(HWND owner) {
    LoadCommonControls();
    const DLGTEMPLATE* dialog = resources_.FindDialog(templateNumber_);
    if (dialog == nullptr) {
        return IDCANCEL;
    }
    const INT_PTR result = DialogBoxIndirectParamA(resources_.Instance(), dialog, owner, Procedure,
                                                   reinterpret_cast<LPARAM>(this));
    return result > 0 ? static_cast<int>(result) : IDCANCEL;
}

INT_PTR CALLBACK ModalDialog::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, second);
        return reinterpret_cast<ModalDialog*>(second)->Begin(window) ? TRUE : FALSE;
    }
    auto* dialog = reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (dialog == nullptr || dialog->window_ == nullptr) {
        return FALSE;
    }
    const std::optional<LRESULT> result = dialog->DispatchGuarded(message, first, second);
    if (!result.has_value()) {
        return FALSE;
    }
    if (ReturnsItsResult(message)) {
        return *result;
    }
    SetWindowLongPtrW(window, DWLP_MSGRESULT, *result);
    return TRUE;
}

bool ModalDialog::Begin(HWND window) noexcept {
    window_ = window;
    try {
        return OnInit();
    } catch (...) {
        End(IDCANCEL);
        return false;
    }
}

std::optional<LRESULT> ModalDialog::DispatchGuarded(UINT message, WPARAM first,
                                                    LPARAM second) noexcept {
    try {
        return Dispatch(message, first, second);
    } catch (...) {
        return 0;
    }
}

std::optional<LRESULT> ModalDialog::Dispatch(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(first) == IDCANCEL && HIWORD(first) == BN_CLICKED) {
                OnClose();
            } else {
                OnCommand(LOWORD(first), HIWORD(first));
            }
            return 0;
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<const NMHDR*>(second));
        case WM_CLOSE:
            OnClose();
            return 0;
        case WM_DESTROY:
            OnDestroy();
            return 0;
        case WM_NCDESTROY:
            window_ = nullptr;
            PostMessageW(nullptr, WM_NULL, 0, 0);  // a loop that waits sees its window gone
            return std::nullopt;
        default:
            return OnMessage(message, first, second);
    }
}

void ModalDialog::End(int result) {
    if (window_ != nullptr) {
        EndDialog(window_, result);
    }
}

void ModalDialog::Enable(int control, bool isEnabled) const {
    EnableWindow(Control(control), isEnabled ? TRUE : FALSE);
}

void ModalDialog::Show(int control, bool isVisible) const {
    ShowWindow(Control(control), isVisible ? SW_SHOW : SW_HIDE);
}

void ModalDialog::SetText(int control, const std::string& text) const {
    SetWindowTextA(Control(control), text.c_str());
}

unsigned int ModalDialog::Number(int control) const {
    std::array<char, 16> text{};
    const int length = GetWindowTextA(Control(control), text.data(), static_cast<int>(text.size()));
    unsigned int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + length, number);
    return read.ec == std::errc::result_out_of_range ? UINT_MAX : number;
}

void PlaceOnOwnersMonitor(HWND window) {
    const HWND owner = GetWindow(window, GW_OWNER);
    const bool hasVisibleOwner = owner != nullptr && IsWindowVisible(owner) && !IsIconic(owner);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : window, MONITOR_DEFAULTTONEAREST),
                    &monitor);
    RECT around = monitor.rcWork;
    if (hasVisibleOwner) {
        GetWindowRect(owner, &around);
    }
    RECT place{};
    GetWindowRect(window, &place);
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    const RECT& area = monitor.rcWork;
    const LONG left = std::min((around.left + around.right - width) / 2, area.right - width);
    const LONG top = std::min((around.top + around.bottom - height) / 2, area.bottom - height);
    SetWindowPos(window, nullptr, std::max(left, area.left), std::max(top, area.top), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace orvell::ui
