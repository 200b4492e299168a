#pragma once

#include <windows.h>

namespace orvell::ui {

/// A thread that runs one function and is waited for at the latest when this object goes.
class WorkerThread {
  public:
    using Function = unsigned(__stdcall*)(void*);

    /// Starts a thread and gives its handle, null when there is none to be had.
    using Starter = HANDLE (*)(Function function, void* argument);

    /// A thread of the C run-time with the default size of stack.
    [[nodiscard]] static HANDLE SystemStarter(Function function, void* argument);

    WorkerThread() = default;
    ~WorkerThread() { Join(); }
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;

    /// False when no thread could be started.
    [[nodiscard]] bool Start(Starter starter, Function function, void* argument);

    /// Waits until the thread has ended. Messages that other threads send to windows of this one
    /// are answered meanwhile: the worker may itself wait for such an answer.
    void Join();

  private:
    HANDLE thread_ = nullptr;
};

}  // namespace orvell::ui
