#pragma once

namespace orvell::host {

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
