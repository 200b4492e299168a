// Started without an argument it starts itself once for each way of overrunning a buffer, and
// expects each of these processes to be ended at once.

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr DWORD kBufferOverrun = 0xC0000409;  // STATUS_STACK_BUFFER_OVERRUN of ntstatus.h
constexpr int kSurvived = 3;

/// Longer than any buffer here; volatile, for the compiler not to see it.
volatile std::size_t overlong = 64;

/// Writes beyond a buffer byte by byte, as a loop with a wrong bound does.
[[gnu::noinline]] int OverrunStack() {
    volatile char buffer[16];
    for (std::size_t index = 0; index < overlong; ++index) {
        const_cast<char*>(buffer)[index] = 'x';
        __asm__ volatile("" : : "r"(buffer) : "memory");
    }
    return buffer[0];
}

/// Copies too much into a buffer whose size the compiler knows.
[[gnu::noinline]] int OverrunByCopying() {
    static char source[64] = "x";
    static char target[16];
    const std::size_t size = overlong;
    std::memcpy(target, source, size);
    return target[0];
}

DWORD ExitCodeOf(std::wstring commandLine) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process) == 0) {
        return GetLastError();
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return exitCode;
}

bool IsEnded(const wchar_t* way) {
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    const DWORD exitCode = ExitCodeOf(L'"' + std::wstring(program) + L"\" " + way);
    std::printf("%ls: ended with %lx\n", way, exitCode);
    return exitCode == kBufferOverrun;
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount < 2) {
        const bool isStackGuarded = IsEnded(L"stack");
        const bool isCopyGuarded = IsEnded(L"copy");
        return isStackGuarded && isCopyGuarded ? 0 : 1;
    }
    SetErrorMode(SEM_NOGPFAULTERRORBOX | SEM_FAILCRITICALERRORS);
    const bool isStack = std::strcmp(arguments[1], "stack") == 0;
    return (isStack ? OverrunStack() : OverrunByCopying()) == 'x' ? kSurvived : kSurvived + 1;
}
