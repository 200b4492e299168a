#include "ui/dialogs/worker_thread.h"

#include <process.h>

namespace orvell::ui {

HANDLE WorkerThread::SystemStarter(Function function, void* argument) {
    return reinterpret_cast<HANDLE>(_beginthreadex(nullptr, 0, function, argument, 0, nullptr));
}

bool WorkerThread::Start(Starter starter, Function function, void* argument) {
    Join();
    thread_ = starter(function, argument);
    return thread_ != nullptr;
}

void WorkerThread::Join() {
    if (thread_ == nullptr) {
        return;
    }
    while (MsgWaitForMultipleObjects(1, &thread_, FALSE, INFINITE, QS_SENDMESSAGE) ==
           WAIT_OBJECT_0 + 1) {
        MSG none;
        PeekMessageW(&none, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
    CloseHandle(thread_);
    thread_ = nullptr;
}

}  // namespace orvell::ui
