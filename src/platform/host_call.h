#pragma once

#include <type_traits>

namespace orvell::platform {

/// Calls `function(argument)`, which does nothing but call a function of the host: what is left
/// behind when that one throws must need no destructor. False when it has let an exception out, be
/// it one of another compiler. Everything else that Windows raises, such as a wrong access, goes on
/// to the process.
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
