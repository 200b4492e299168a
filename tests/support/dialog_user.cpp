#include "support/dialog_user.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

namespace orvell::test {

namespace {

constexpr DWORD kPatience = 20'000;  // ms; never reached unless something is wrong
constexpr DWORD kGlance = 5;         // ms
constexpr UINT kWork = WM_APP + 1;
constexpr int kTextOfBox = 0xFFFF;

bool IsShownDialog(HWND window) {
    wchar_t name[16] = L"";
    GetClassNameW(window, name, 16);
    return std::wstring_view(name) == L"#32770" && IsWindowVisible(window) != FALSE;
}

LRESULT CALLBACK DeskProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == kWork) {
        (*reinterpret_cast<const std::function<void()>*>(second))();
        return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

/// A window of the thread that shows the dialogs; through it work gets there.
class Desk {
  public:
    Desk()
        : window_(CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                                nullptr)) {
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DeskProcedure));
    }
    ~Desk() { DestroyWindow(window_); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    [[nodiscard]] HWND Window() const { return window_; }

  private:
    HWND window_;
};

struct Search {
    const std::function<bool(HWND)>& isWanted;
    HWND found;
};

BOOL CALLBACK SearchOn(HWND window, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    if (IsShownDialog(window) && search.isWanted(window)) {
        search.found = window;
    }
    return search.found == nullptr ? TRUE : FALSE;
}

void TreatWaitingMessages() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) {
        DispatchMessageW(&message);
    }
}

BOOL CALLBACK CloseDialog(HWND window, LPARAM) {
    if (IsShownDialog(window)) {
        PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
        PostMessageW(window, WM_COMMAND, IDOK, 0);  // for boxes without Cancel
    }
    return TRUE;
}

}  // namespace

HWND DialogUser::FindDialog(const std::function<bool(HWND)>& isWanted) const {
    Search search{isWanted, nullptr};
    EnumThreadWindows(GetWindowThreadProcessId(desk_, nullptr), SearchOn,
                      reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void DialogUser::WaitUntil(const char* what, const std::function<bool()>& condition) {
    for (DWORD waited = 0; !condition(); waited += kGlance) {
        if (waited > kPatience) {
            throw TookTooLong(what);
        }
        Sleep(kGlance);
    }
}

void DialogUser::WaitUntilGone(HWND window) {
    WaitUntil("a window to go", [window] { return IsWindow(window) == FALSE; });
}

HWND DialogUser::Dialog(int control) const {
    HWND found = nullptr;
    WaitUntil("a dialog", [&] {
        found =
            FindDialog([control](HWND window) { return GetDlgItem(window, control) != nullptr; });
        return found != nullptr;
    });
    return found;
}

HWND DialogUser::MessageBox() const {
    HWND found = nullptr;
    WaitUntil("a message box", [&] {
        found = FindDialog([](HWND window) {
            const HWND text = GetDlgItem(window, kTextOfBox);
            return text != nullptr && GetDlgItem(window, 1001) == nullptr &&
                   GetDlgItem(window, 1010) == nullptr;
        });
        return found != nullptr;
    });
    return found;
}

std::string DialogUser::TextOfBox(HWND box) {
    return Text(box, kTextOfBox);
}

std::string DialogUser::AnswerBox() const {
    const HWND box = MessageBox();
    std::string text = TextOfBox(box);
    Press(box, IDOK);
    WaitUntilGone(box);
    return text;
}

void DialogUser::OnThread(const std::function<void()>& work) const {
    SendMessageW(desk_, kWork, 0, reinterpret_cast<LPARAM>(&work));
}

void DialogUser::Press(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

void DialogUser::SetText(HWND dialog, int control, std::string_view text) {
    SendDlgItemMessageA(dialog, control, WM_SETTEXT, 0,
                        reinterpret_cast<LPARAM>(std::string(text).c_str()));
}

std::string DialogUser::TextOf(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::string DialogUser::Text(HWND dialog, int control) {
    return TextOf(GetDlgItem(dialog, control));
}

void DialogUser::Type(HWND control, std::string_view characters) const {
    OnThread([control] { SetFocus(control); });
    for (const char character : characters) {
        SendMessageA(control, WM_CHAR, static_cast<unsigned char>(character), 0);
    }
}

void DialogUser::PressKey(WPARAM key) const {
    OnThread([key] {
        PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
        PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    });
}

int DialogUser::DialogCount() const {
    int count = 0;
    static_cast<void>(FindDialog([&count](HWND) {
        ++count;
        return false;
    }));
    return count;
}

void WorkDialogs(const std::function<void()>& show,
                 const std::function<void(const DialogUser&)>& script) {
    const Desk desk;
    const DialogUser user(desk.Window());
    const DWORD thread = GetCurrentThreadId();
    std::atomic<bool> isShown = true;
    std::atomic<bool> isWorking = true;
    std::thread working([&] {
        try {
            script(user);
            DialogUser::WaitUntil("the dialogs to end", [&] { return !isShown; });
        } catch (const std::exception& failure) {
            ADD_FAILURE() << "the user waited in vain for " << failure.what();
        }
        while (isShown) {
            EnumThreadWindows(thread, CloseDialog, 0);
            Sleep(kGlance);
        }
        isWorking = false;
    });
    show();
    isShown = false;
    while (isWorking) {  // what the script sends to this thread's windows must still be answered
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kGlance, QS_ALLINPUT);
        TreatWaitingMessages();
    }
    working.join();
}

}  // namespace orvell::test
