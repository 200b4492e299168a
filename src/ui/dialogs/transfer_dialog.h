#pragma once

#include <windows.h>

#include <cstdint>

#include "ui/dialogs/modal_dialog.h"
#include "ui/dialogs/parameter_editor.h"
#include "ui/dialogs/transfer_task.h"
#include "ui/dialogs/worker_thread.h"

namespace orvell::ui {

/// How a transfer gets its timer and its thread; tests take them away.
struct TransferSystem {
    UINT_PTR(WINAPI* setTimer)(HWND, UINT_PTR, UINT, TIMERPROC) = SetTimer;
    WorkerThread::Starter startThread = WorkerThread::SystemStarter;
};

/// Writes a value into the target system on a thread of its own and shows meanwhile how far it has
/// come. `Run` gives IDOK when all was written; otherwise IDCANCEL, after a message unless the user
/// has cancelled. What was written before stays in the target system.
class TransferDialog final : public ModalDialog {
  public:
    /// `count` values of the memory area `identifier`, one after the other. `value`, `host` and all
    /// services must stay unchanged while the dialog is open.
    TransferDialog(const EditorServices& services, values::ConstValueBuffer value,
                   std::uint32_t identifier, std::uint32_t count, const OnlineAccessRecord& host,
                   const TransferSystem& system = {});
    ~TransferDialog() override;

  protected:
    bool OnInit() override;
    void OnClose() override;
    void OnDestroy() override;
    std::optional<LRESULT> OnMessage(UINT message, WPARAM first, LPARAM second) override;

  private:
    [[nodiscard]] std::optional<resources::StringId> StartTransfer();
    [[nodiscard]] bool StartTimer();
    void StopTimer();
    void ShowProgress() const;
    void OnTimer();
    void Finish();
    void Fail(resources::StringId message);

    const EditorServices& services_;
    memstruct::DefinitionsInUse inUse_;  // before the worker, which reads the type
    TransferSystem system_;
    const memstruct::TypeDef* type_;
    TransferTask task_;
    WorkerThread thread_;
    UINT_PTR timer_ = 0;
};

}  // namespace orvell::ui
