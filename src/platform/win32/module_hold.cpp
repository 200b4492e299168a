// A function cannot give back the last reference to the module that it lies in: there would be
// nothing to return from. Another thread does it, one that runs the system's own code only. It is
// waited for, so that an unloading that comes later unloads. When the reference was the last one,
// the thread gets as far as DllMain, which tells the function to return and waits until it has.

#include "platform/module_hold.h"

#include <windows.h>

#include <atomic>

namespace orvell::platform {

namespace {

int holds = 0;  // inside each other
HMODULE thisModule = nullptr;
HANDLE unloading = nullptr;     // signalled by DllMain; from the first hold on
std::atomic<DWORD> holder = 0;  // the thread that has held last
std::atomic<bool> isReturning = false;

LPTHREAD_START_ROUTINE FreeLibraryOfSystem() {
    return reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "FreeLibrary")));
}

void GiveBackReference() {
    if (unloading == nullptr) {
        return;
    }
    const HANDLE releasing =
        CreateThread(nullptr, 0, FreeLibraryOfSystem(), thisModule, 0, nullptr);
    if (releasing != nullptr) {
        const HANDLE ends[] = {releasing, unloading};
        WaitForMultipleObjects(2, ends, FALSE, INFINITE);
        CloseHandle(releasing);
    }
}

DWORD SizeOfImage() {
    const auto* const base = reinterpret_cast<const char*>(thisModule);
    const auto* const begin = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    return reinterpret_cast<const IMAGE_NT_HEADERS*>(base + begin->e_lfanew)
        ->OptionalHeader.SizeOfImage;
}

/// Whether the thread, which waits for nothing any more, executes the module's code.
bool IsInModule(HANDLE thread) {
    CONTEXT context{};
    context.ContextFlags = CONTEXT_CONTROL;
    if (SuspendThread(thread) == static_cast<DWORD>(-1)) {
        return false;  // it has ended
    }
    const bool isKnown = GetThreadContext(thread, &context) != FALSE;
    ResumeThread(thread);
    return isKnown &&
           static_cast<DWORD>(context.Eip) - reinterpret_cast<DWORD>(thisModule) < SizeOfImage();
}

/// Returns when the thread is out of the module, or has ended.
void AwaitReturnOf(DWORD number) {
    while (!isReturning) {
        Sleep(1);
    }
    const HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT, FALSE, number);
    if (thread != nullptr) {
        while (IsInModule(thread)) {
            Sleep(1);
        }
        CloseHandle(thread);
    }
}

}  // namespace

ModuleHold::ModuleHold() {
    if (holds++ > 0) {
        return;
    }
    if (unloading == nullptr) {
        unloading = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    }
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&holds),
                       &thisModule);
}

ModuleHold::~ModuleHold() {
    if (--holds == 0) {
        isReturning = false;
        holder = GetCurrentThreadId();
        GiveBackReference();
        isReturning = true;  // last: the module may go as soon as this thread is out of it
    }
}

void AwaitReturnOfHolder() {
    if (unloading == nullptr) {
        return;
    }
    SetEvent(unloading);
    const DWORD number = holder;
    if (number != 0 && number != GetCurrentThreadId()) {
        AwaitReturnOf(number);
    }
    CloseHandle(unloading);
}

}  // namespace orvell::platform
