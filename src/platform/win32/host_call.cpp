// Compilers of hosts raise their C++ exceptions by structured exception handling, of which GCC
// knows nothing: without a handler of ours in the chain they would pass the module's functions by,
// whose destructors would not run, and from the worker thread they would end the process.

#include "platform/host_call.h"

#include <windows.h>

namespace orvell::platform {

namespace {

constexpr DWORD kCppException = 0xE06D7363;  // "msc", as Windows' C++ run-time raises them
constexpr DWORD kUnwinding = 0x2 | 0x4;      // flags of calls that only clear away

/// A link of the thread's chain of handlers, which begins at fs:0. Its first two words are the
/// system's.
class Handler {
  public:
    Handler() : previous_(First()), onException_(OnException) { SetFirst(this); }
    ~Handler() { SetFirst(previous_); }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;

    [[nodiscard]] void** Resume() { return resume_; }

  private:
    static Handler* First() {
        Handler* first;
        __asm__ volatile("movl %%fs:0, %0" : "=r"(first));
        return first;
    }

    static void SetFirst(Handler* first) {
        __asm__ volatile("movl %0, %%fs:0" : : "r"(first) : "memory");
    }

    static EXCEPTION_DISPOSITION __cdecl OnException(EXCEPTION_RECORD* record, void* frame,
                                                     CONTEXT* /*context*/, void* /*dispatcher*/) {
        if ((record->ExceptionFlags & kUnwinding) != 0 || record->ExceptionCode != kCppException) {
            return ExceptionContinueSearch;
        }
        auto* volatile handler = static_cast<Handler*>(frame);  // not in a register, which
        RtlUnwind(frame, nullptr, record, nullptr);             // this need not preserve
        __builtin_longjmp(handler->Resume(), 1);
    }

    Handler* previous_;
    [[maybe_unused]] EXCEPTION_DISPOSITION(__cdecl* onException_)(EXCEPTION_RECORD*, void*,
                                                                  CONTEXT*, void*);
    void* resume_[5];  // as __builtin_setjmp wants it
};

/// False when the function has let an exception of another compiler out.
[[gnu::noinline]] bool RunHandled(void (*function)(void*), void* argument) {
    Handler handler;
    if (__builtin_setjmp(handler.Resume()) != 0) {
        return false;
    }
    function(argument);
    return true;
}

}  // namespace

bool RunHostFunction(void (*function)(void*), void* argument) noexcept {
    try {
        return RunHandled(function, argument);
    } catch (...) {
        return false;
    }
}

}  // namespace orvell::platform
