// What the compiler's stack protector and the checked copy functions refer to. The compiler's own
// library draws the guard from a cryptographic provider, which loads libraries: that must not be
// done while a module starts. And it prints where a host has no console.

#include <windows.h>

#include <cstdint>

namespace orvell::platform {
namespace {

/// Codes for the system and for whoever reads its report of the crash (winnt.h).
constexpr unsigned kOverrunStack = 2;
constexpr UINT kBufferOverrun = 0xC0000409;

/// Ends the process at once: where memory has been overrun no handler and no destructor may run.
[[noreturn]] void EndProcess() {
    if (IsProcessorFeaturePresent(PF_FASTFAIL_AVAILABLE) != 0) {
        __asm__ volatile("int $0x29" : : "c"(kOverrunStack));
    }
    TerminateProcess(GetCurrentProcess(), kBufferOverrun);
    for (;;) {
    }
}

/// Whatever differs from one process and one start to the next.
__attribute__((no_stack_protector)) std::uintptr_t DrawGuard() {
    LARGE_INTEGER counter = {};
    QueryPerformanceCounter(&counter);
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    const DWORD words[] = {
        counter.u.LowPart,
        now.dwLowDateTime,
        now.dwHighDateTime,
        GetCurrentProcessId(),
        GetCurrentThreadId(),
        static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(&counter)),
        static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(&GetCurrentProcessId)),
    };
    std::uint32_t guard = 2166136261U;  // FNV-1a, by words
    for (const DWORD word : words) {
        guard = (guard ^ word) * 16777619U;
        guard ^= guard >> 15;
    }
    return guard;
}

}  // namespace
}  // namespace orvell::platform

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" {

extern std::uintptr_t __stack_chk_guard;
std::uintptr_t __stack_chk_guard = 0xBB40E64E;  // until it has been drawn

__attribute__((noreturn)) void __stack_chk_fail();
void __stack_chk_fail() {
    orvell::platform::EndProcess();
}

__attribute__((noreturn)) void __chk_fail();
void __chk_fail() {
    orvell::platform::EndProcess();
}

/// Before all other constructors: none of them may be under way while the guard changes.
__attribute__((constructor(101), no_stack_protector)) static void SetGuard() {
    __stack_chk_guard = orvell::platform::DrawGuard();
}
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
