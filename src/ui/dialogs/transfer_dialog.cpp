#include "ui/dialogs/transfer_dialog.h"

#include <commctrl.h>

#include "resources/dialog_ids.h"
#include "ui/dialogs/error_message.h"

namespace orvell::ui {

using resources::StringId;

namespace {

constexpr UINT kTimerInterval = 100;  // ms
constexpr UINT_PTR kTimerAttempts = 100;

unsigned __stdcall RunTask(void* task) {
    static_cast<TransferTask*>(task)->Run();
    return 0;
}

}  // namespace

TransferDialog::TransferDialog(const EditorServices& services, values::ConstValueBuffer value,
                               std::uint32_t identifier, std::uint32_t count,
                               const OnlineAccessRecord& host, const TransferSystem& system)
    : ModalDialog(
          {static_cast<HINSTANCE>(services.instance), static_cast<HMODULE>(services.resources)},
          ORVELL_DIALOG_TRANSFER),
      services_(services),
      inUse_(services.store),
      system_(system),
      type_(services.store.TypeOfArea(identifier)),
      task_(services.converters, type_, count, value, host) {}

/// The window may have been destroyed under the transfer.
TransferDialog::~TransferDialog() {
    task_.Cancel();
    thread_.Join();
}

bool TransferDialog::OnInit() {
    PlaceOnOwnersMonitor(Window());
    SendMessageW(Control(ORVELL_TRANSFER_PROGRESS), PBM_SETRANGE32, 0, 100);
    SendMessageW(Control(ORVELL_TRANSFER_PROGRESS), PBM_SETPOS, 0, 0);
    if (const auto error = StartTransfer()) {
        Fail(*error);
        return true;
    }
    Enable(IDCANCEL, true);
    SetFocus(Control(IDCANCEL));
    return false;
}

std::optional<StringId> TransferDialog::StartTransfer() {
    if (type_ == nullptr) {
        return StringId::TransferParametersInvalid;
    }
    if (!StartTimer()) {
        return StringId::TransferThreadFailed;
    }
    task_.Start();
    if (!thread_.Start(system_.startThread, RunTask, &task_)) {
        StopTimer();
        return StringId::TransferThreadFailed;
    }
    return std::nullopt;
}

/// Not under number 0: Windows then chooses another, by which the timer could not be ended.
bool TransferDialog::StartTimer() {
    for (UINT_PTR number = 1; number <= kTimerAttempts && timer_ == 0; ++number) {
        if (system_.setTimer(Window(), number, kTimerInterval, nullptr) != 0) {
            timer_ = number;
        }
    }
    return timer_ != 0;
}

void TransferDialog::StopTimer() {
    if (timer_ != 0) {
        KillTimer(Window(), timer_);
        timer_ = 0;
    }
}

std::optional<LRESULT> TransferDialog::OnMessage(UINT message, WPARAM first, LPARAM /*second*/) {
    if (message == WM_TIMER && timer_ != 0 && first == timer_) {
        OnTimer();
        return 0;
    }
    return std::nullopt;
}

void TransferDialog::OnTimer() {
    const bool isDone = !task_.IsRunning();  // before the progress, which is then the last
    ShowProgress();
    if (isDone) {
        StopTimer();  // a message box lets timer messages through
        Finish();
    }
}

void TransferDialog::ShowProgress() const {
    SendMessageW(Control(ORVELL_TRANSFER_PROGRESS), PBM_SETPOS,
                 static_cast<WPARAM>(task_.Percentage()), 0);
}

void TransferDialog::Finish() {
    if (task_.IsCancelled()) {
        End(IDCANCEL);
    } else if (const auto error = task_.Error()) {
        Fail(*error);
    } else {
        End(IDOK);
    }
}

void TransferDialog::Fail(StringId message) {
    Enable(IDCANCEL, false);
    ShowError(services_, Window(), message);
    End(IDCANCEL);
}

/// The dialog stays until the worker has seen it.
void TransferDialog::OnClose() {
    if (!task_.IsCancelled()) {
        task_.Cancel();
        Enable(IDCANCEL, false);
        SetFocus(Window());
    }
}

void TransferDialog::OnDestroy() {
    StopTimer();
    task_.Cancel();
}

}  // namespace orvell::ui
