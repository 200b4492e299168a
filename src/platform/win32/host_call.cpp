// Compilers of hosts raise their C++ exceptions by structured exception handling, of which GCC
// knows nothing: without a handler of ours in the chain they would pass the module's functions by,
// whose destructors would not run, and from the worker thread they would end the process.

#include "platform/host_call.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>

namespace orvell::platform {

namespace {

constexpr DWORD kCppException = 0xE06D7363;  // "msc", as Windows' C++ run-time raises them
constexpr DWORD kUnwinding = 0x2 | 0x4;      // flags of calls that only clear away

/// What goes with such an exception. One that is thrown on again comes without object and type.
enum ThrowParameter : DWORD { kFormat, kObject, kType, kThrowParameters };
constexpr ULONG_PTR kFirstFormat = 0x19930520;
constexpr ULONG_PTR kLastFormat = 0x19930522;

/// The type of a thrown object as the thrower's compiler describes it; more follows.
struct ThrownType {
    std::uint32_t attributes;
    // Null for a type without destructor, which is a member function: the object is in ecx, where
    // this convention has it as well.
    void(__fastcall* destroy)(void* object);
};
static_assert(offsetof(ThrownType, destroy) == 4);

/// Whoever catches an exception ends its object's life. To be called when the frames between have
/// been cleared, but as deep on the stack as they were: the object lies in the thrower's.
void DestroyObject(const EXCEPTION_RECORD& record) {
    const ULONG_PTR* const parameters = record.ExceptionInformation;
    if (record.NumberParameters != kThrowParameters || parameters[kFormat] < kFirstFormat ||
        parameters[kFormat] > kLastFormat) {
        return;
    }
    auto* const object = reinterpret_cast<void*>(parameters[kObject]);
    const auto* const type = reinterpret_cast<const ThrownType*>(parameters[kType]);
    if (object != nullptr && type != nullptr && type->destroy != nullptr) {
        type->destroy(object);
    }
}

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
        auto* volatile handler = static_cast<Handler*>(frame);  // not in registers, which
        auto* volatile thrown = record;                         // the unwinding
        RtlUnwind(frame, nullptr, record, nullptr);             // need not preserve
        DestroyObject(*thrown);
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
