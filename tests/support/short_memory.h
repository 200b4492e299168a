#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <limits>

namespace orvell::test {

// Programs that contain short_memory.cpp, and have malloc, calloc and free wrapped by the linker,
// count the blocks that they hold and can run out of memory: through operator new and through the C
// run-time's functions alike.

/// Blocks taken and not yet given back.
[[nodiscard]] std::size_t HeldBlocks();

enum class Shortage {
    Passing,  ///< one allocation fails
    Lasting,  ///< one allocation fails, and all after it
};

/// The next `count` allocations succeed.
void BeginShortage(Shortage shortage, std::size_t count);

/// True when an allocation has failed since it began.
bool EndShortage();

/// Lets a shortage rest, as while code runs that is not to be tested, and go on.
void SuspendShortage(bool isSuspended);

/// Calls `action` with 0, 1, 2, ... allocations before the shortage until it meets none, and
/// `check(shortage)` after each that it met. Returns how many these were of each kind at least.
template <typename Action, typename Check>
std::size_t RunWithEveryShortage(const Action& action, const Check& check) {
    std::size_t least = std::numeric_limits<std::size_t>::max();
    for (const Shortage shortage : {Shortage::Passing, Shortage::Lasting}) {
        for (std::size_t allocations = 0;; ++allocations) {
            BeginShortage(shortage, allocations);
            action();
            if (!EndShortage()) {
                least = std::min(least, allocations);
                break;
            }
            check(shortage);
        }
    }
    return least;
}

/// True when `action` asks for no memory at all.
template <typename Action>
[[nodiscard]] bool NeedsNoMemory(const Action& action) {
    BeginShortage(Shortage::Lasting, 0);
    action();
    return !EndShortage();
}

}  // namespace orvell::test
