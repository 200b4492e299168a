#pragma once

#include <type_traits>

namespace orvell::platform {

/// Calls `function(argument)`, which does nothing but call a function of the host: what is left
/// behind when that one throws must need no destructor. False when it has let an exception out: one
/// of this module's own run-time, or one that is raised as Windows' C++ run-time raises them (code
/// 0xE06D7363), whose object is then destroyed as its type asks; only one that was caught and
/// thrown on again is not known here and lost. Everything else goes on to the process: a wrong
/// access, and exceptions of other run-times, be it another copy of this one.
[[nodiscard]] bool RunHostFunction(void (*function)(void*), void* argument) noexcept;

/// Calls a function of the host. One that lets an exception out has failed: its result is 0.
template <typename Function, typename... Arguments>
auto CallHost(Function* function, Arguments... arguments) noexcept {
    using Result = decltype(function(arguments...));
    if constexpr (std::is_void_v<Result>) {
        auto call = [&] { function(arguments...); };
        static_cast<void>(RunHostFunction(
            [](void* context) { (*static_cast<decltype(call)*>(context))(); }, &call));
    } else {
        Result result{};
        auto call = [&] { result = function(arguments...); };
        const bool hasReturned = RunHostFunction(
            [](void* context) { (*static_cast<decltype(call)*>(context))(); }, &call);
        return hasReturned ? result : Result{};
    }
}

}  // namespace orvell::platform
