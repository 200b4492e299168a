#pragma once

#include <cstdint>

namespace orvell::host {

/// Results of the functions that answer with a truth value.
inline constexpr std::int32_t kSuccess = 1;
inline constexpr std::int32_t kFailure = 0;

/// Runs the body of a function that the host can reach. No exception leaves it: any of them, a
/// failed allocation included, becomes the function's documented failure value.
template <typename Result, typename Body>
[[nodiscard]] Result Guarded(Result failure, Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

/// As above for functions without a result.
template <typename Body>
void Guarded(Body&& body) noexcept {
    try {
        body();
    } catch (...) {  // the host is told nothing: the function has no way to
    }
}

}  // namespace orvell::host
