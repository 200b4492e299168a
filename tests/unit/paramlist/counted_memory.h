#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <new>

namespace orvell::test {

// Programs that contain counted_memory.cpp count all their memory, and can run out of it.

inline constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

/// What the blocks not yet given back cost in the C run-time's heap.
[[nodiscard]] std::size_t TakenBytes();

/// What all blocks so far have cost, given back or not.
[[nodiscard]] std::size_t TotalBytes();

enum class Shortage {
    Passing,  ///< one allocation fails
    Lasting,  ///< one allocation fails, and all after it
};

/// The next `count` allocations succeed, the one behind them throws std::bad_alloc.
void LimitAllocations(std::size_t count, Shortage shortage = Shortage::Lasting);

/// Calls `action` with 0, 1, 2, ... allocations to go until one of these suffices, and `check`
/// after each failure.
template <typename Action, typename Check>
void FailEveryAllocation(const Action& action, const Check& check,
                         Shortage shortage = Shortage::Lasting) {
    for (std::size_t allocations = 0;; ++allocations) {
        LimitAllocations(allocations, shortage);
        try {
            action();
            LimitAllocations(kNoLimit);
            EXPECT_GT(allocations, 0U) << "nothing was allocated";
            return;
        } catch (const std::bad_alloc&) {
            LimitAllocations(kNoLimit);
            check();
        }
    }
}

}  // namespace orvell::test
