#include "cli/dialog_driver.h"

#include "cli/keyboard_input.h"
#include "cli/module_controls.h"
#include "cli/screen_picture.h"

namespace workbench::cli {
namespace {

DialogDriver* current = nullptr;

constexpr UINT kTickMilliseconds = 20;
constexpr std::uint32_t kPatience = 30'000 / kTickMilliseconds;
constexpr std::uint32_t kTicksToEnd = 1'000 / kTickMilliseconds;
constexpr std::uint32_t kMostTabs = 20;

/// Windows draws into memory first; after so long the screen has it.
constexpr std::uint32_t kDrawingTicks = 10;

BOOL CALLBACK TakeOpenDialog(HWND window, LPARAM result) {
    if (IsWindowVisible(window) == FALSE || IsWindowEnabled(window) == FALSE ||
        !IsModuleDialog(window)) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

/// The module's dialog that can be worked, null when there is none.
HWND OpenDialog() {
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeOpenDialog, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}

/// The control of the dialog that has the keyboard, also by a window inside it.
int FocusedControl(HWND dialog) {
    HWND window = GetFocus();
    while (window != nullptr && GetParent(window) != dialog) {
        window = GetParent(window);
    }
    return window == nullptr ? 0 : GetDlgCtrlID(window);
}

}  // namespace

DialogDriver::DialogDriver(std::vector<ScriptStep> steps)
    : steps_(std::move(steps)), timer_(SetTimer(nullptr, 0, kTickMilliseconds, OnTimer)) {
    current = this;
    // Over a list that opens, the pointer would choose from it.
    SetCursorPos(0, 0);
}

DialogDriver::~DialogDriver() {
    KillTimer(nullptr, timer_);
    current = nullptr;
}

std::string DialogDriver::Problem() const {
    if (problem_.empty() && next_ < steps_.size()) {
        return "The dialog has ended before line " + std::to_string(steps_[next_].line) +
               " of the script.";
    }
    return problem_;
}

void CALLBACK DialogDriver::OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                                    DWORD /*time*/) {
    if (current != nullptr) {
        current->Continue();
    }
}

void DialogDriver::Continue() {
    if (!problem_.empty()) {
        return EndDialog();
    }
    // None while a message box waits for its answer, which it gets elsewhere.
    const HWND dialog = OpenDialog();
    if (next_ == steps_.size()) {
        return AwaitEnd(dialog);
    }
    if (dialog != nullptr && GetForegroundWindow() == dialog) {
        return TakeStep(steps_[next_], dialog);
    }
    SetForegroundWindow(dialog);
    Wait();
}

/// A transfer ends by itself, the parameter dialog does not.
void DialogDriver::AwaitEnd(HWND dialog) {
    const bool isLeftOpen = dialog != nullptr && GetDlgItem(dialog, kValueGrid) != nullptr;
    if (isLeftOpen && ++waited_ == kTicksToEnd) {
        GiveUp("The dialog is still open behind the script's last line");
    }
}

void DialogDriver::Wait() {
    if (++waited_ == kPatience) {
        GiveUp("The dialog is not ready for line " + std::to_string(steps_[next_].line) +
               " of the script");
    }
}

void DialogDriver::EndDialog() const {
    if (const HWND dialog = OpenDialog()) {
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    }
}

void DialogDriver::TakeStep(const ScriptStep& step, HWND dialog) {
    switch (step.action) {
        case ScriptStep::Action::Focus:
            return Focus(step, dialog);
        case ScriptStep::Action::Keys:
            for (const KeyStroke& stroke : step.keys) {
                SendKey(stroke);
            }
            return NextStep();
        case ScriptStep::Action::Type:
            SendText(step.text);
            return NextStep();
        case ScriptStep::Action::Await:
            return GetDlgItem(dialog, step.control) != nullptr ? NextStep() : Wait();
        case ScriptStep::Action::Picture:
            return KeepPicture(step);
        case ScriptStep::Action::Pause:
            return Pause(step);
    }
}

void DialogDriver::Focus(const ScriptStep& step, HWND dialog) {
    if (FocusedControl(dialog) == step.control) {
        NextStep();
    } else if (ticks_++ < kMostTabs) {
        SendKey({VK_TAB, {}});
    } else {
        GiveUp("The dialog does not give the keyboard to the control of line " +
               std::to_string(step.line));
    }
}

void DialogDriver::KeepPicture(const ScriptStep& step) {
    if (ticks_++ < kDrawingTicks) {
        return;
    }
    if (KeepScreenPicture(step.text)) {
        NextStep();
    } else {
        GiveUp("The dialog's picture of line " + std::to_string(step.line) + " cannot be written");
    }
}

void DialogDriver::Pause(const ScriptStep& step) {
    if (ticks_++ * kTickMilliseconds >= step.milliseconds) {
        NextStep();
    }
}

void DialogDriver::NextStep() {
    ++next_;
    ticks_ = 0;
    waited_ = 0;
}

void DialogDriver::GiveUp(const std::string& reason) {
    problem_ = reason + "; it has been cancelled.";
}

}  // namespace workbench::cli
