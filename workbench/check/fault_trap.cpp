#include "check/fault_trap.h"

#include <windows.h>

#include <array>
#include <csetjmp>
#include <csignal>
#include <cstdint>

#include "check/guarded_block.h"

namespace workbench::check {
namespace {

/// Where the trapped call is left for, and why.
struct Landing {
    bool isArmed = false;
    std::jmp_buf place;
    DWORD code = 0;  ///< of the exception; 0: abort
    std::uintptr_t accessed = 0;
    bool isWrite = false;
};

Landing landing;

/// Entered in place of the instruction that failed, as an ordinary function.
[[noreturn]] void LeaveCall() {
    std::longjmp(landing.place, 1);
}

bool EndsCall(DWORD code) {
    switch (code) {
        case EXCEPTION_ACCESS_VIOLATION:
        case EXCEPTION_IN_PAGE_ERROR:
        case EXCEPTION_DATATYPE_MISALIGNMENT:
        case EXCEPTION_ILLEGAL_INSTRUCTION:
        case EXCEPTION_PRIV_INSTRUCTION:
        case EXCEPTION_BREAKPOINT:
        case EXCEPTION_INT_DIVIDE_BY_ZERO:
        case EXCEPTION_INT_OVERFLOW:
        case EXCEPTION_FLT_DIVIDE_BY_ZERO:
        case EXCEPTION_FLT_INVALID_OPERATION:
        case EXCEPTION_FLT_STACK_CHECK:
        case EXCEPTION_STACK_OVERFLOW:
            return true;
        default:
            return false;
    }
}

LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    if (!landing.isArmed || !EndsCall(record.ExceptionCode)) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    landing.isArmed = false;
    landing.code = record.ExceptionCode;
    if (record.ExceptionCode == EXCEPTION_ACCESS_VIOLATION) {
        landing.isWrite = record.ExceptionInformation[0] == 1;
        landing.accessed = record.ExceptionInformation[1];
    }
    // As a call would leave the stack: aligned to 16 bytes, with a return address.
    CONTEXT& context = *exception->ContextRecord;
    context.Esp = (context.Esp & ~DWORD{15}) - sizeof(void*);
    context.Eip = reinterpret_cast<DWORD>(&LeaveCall);
    context.EFlags &= ~DWORD{0x400};  // the direction flag
    return EXCEPTION_CONTINUE_EXECUTION;
}

void OnAbort(int /*signal*/) {
    if (landing.isArmed) {
        landing.isArmed = false;
        landing.code = 0;
        std::signal(SIGABRT, OnAbort);
        LeaveCall();
    }
}

std::string Hexadecimal(std::uintptr_t number) {
    std::array<char, 16> text{};
    wsprintfA(text.data(), "%08Xh", number);
    return text.data();
}

std::string AccessText() {
    std::string text = landing.isWrite ? "wrote " : "read ";
    const GuardedBlock* block = GuardedBlock::At(landing.accessed);
    if (block == nullptr) {
        return text + "at address " + Hexadecimal(landing.accessed);
    }
    const auto distance = static_cast<std::intptr_t>(landing.accessed) -
                          reinterpret_cast<std::intptr_t>(block->Data());
    text += distance < 0 ? "before" : "behind";
    text +=
        " the " + std::string(block->What()) + " of " + std::to_string(block->Size()) + " bytes";
    return text + ", at byte " + std::to_string(distance);
}

std::string FaultText() {
    switch (landing.code) {
        case 0:
            return "aborted";
        case EXCEPTION_ACCESS_VIOLATION:
            return AccessText();
        case EXCEPTION_STACK_OVERFLOW:
            return "ran out of stack";
        default:
            return "processor exception " + Hexadecimal(landing.code);
    }
}

}  // namespace

FaultTrap::FaultTrap() : handler_(AddVectoredExceptionHandler(1, OnException)) {
    std::signal(SIGABRT, OnAbort);
}

FaultTrap::~FaultTrap() {
    std::signal(SIGABRT, SIG_DFL);
    RemoveVectoredExceptionHandler(handler_);
}

std::string FaultTrap::RunFunction(Function function, void* context) {
    const Landing outer = landing;
    if (setjmp(landing.place) != 0) {
        const std::string text = FaultText();
        landing = outer;
        return text;
    }
    landing.isArmed = true;
    function(context);
    landing = outer;
    return {};
}

}  // namespace workbench::check
