// A function cannot give back the last reference to the module that it lies in: there would be
// nothing to return from. Another thread does it, one that runs the system's own code only. It is
// waited for, so that an unloading that comes later unloads. When the reference was the last one,
// the thread gets as far as DllMain, which tells the function to return and waits until it has.

#include "platform/module_hold.h"

#include <windows.h>

#include <atomic>
#include <utility>

namespace orvell::platform {

namespace {

int holds = 0;  // inside each other
HMODULE thisModule = nullptr;
bool isReferenced = false;   // by the holds
HANDLE unloading = nullptr;  // signalled by DllMain; from the first hold on
std::atomic<bool> isReturning = false;

/// The thread that has held last. While its handle is open no other thread gets its number.
HANDLE holder = nullptr;
DWORD holderNumber = 0;

LPTHREAD_START_ROUTINE FreeLibraryOfSystem() {
    return reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "FreeLibrary")));
}

/// Closes the handle whose place it is and leaves it empty.
void Close(HANDLE& handle) {
    if (handle != nullptr) {
        CloseHandle(std::exchange(handle, nullptr));
    }
}

void RememberHolder() {
    Close(holder);
    const HANDLE process = GetCurrentProcess();
    if (!DuplicateHandle(process, GetCurrentThread(), process, &holder,
                         THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT, FALSE, 0)) {
        holder = nullptr;
    }
    holderNumber = GetCurrentThreadId();
}

/// Without the means to have the return awaited the reference stays, and the module with it.
void GiveBackReference() {
    if (!isReferenced || unloading == nullptr || holder == nullptr) {
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
void AwaitReturnOf(HANDLE thread) {
    while (!isReturning) {
        Sleep(1);
    }
    while (IsInModule(thread)) {
        Sleep(1);
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
    isReferenced = GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                      reinterpret_cast<LPCWSTR>(&holds), &thisModule) != FALSE;
}

ModuleHold::~ModuleHold() {
    if (--holds == 0) {
        isReturning = false;
        RememberHolder();
        GiveBackReference();
        isReturning = true;  // last: the module may go as soon as this thread is out of it
    }
}

void AwaitReturnOfHolder() {
    if (unloading == nullptr) {
        return;
    }
    SetEvent(unloading);
    if (thisModule != nullptr && holder != nullptr && holderNumber != GetCurrentThreadId()) {
        AwaitReturnOf(holder);
    }
    Close(holder);
    Close(unloading);
}

}  // namespace orvell::platform
