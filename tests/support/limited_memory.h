#pragma once

#include <cstddef>

namespace orvell::test {

// Programs that contain limited_memory.cpp count what operator new gives, and let it fail on the
// thread of the test. As short_memory.h, for programs whose run-time of exceptions needs the C
// run-time's own memory in the middle of a throw.

/// Blocks of operator new that have not been given back.
[[nodiscard]] std::size_t HeldNewBlocks();

/// On this thread, the allocation behind the next `count` ones fails; with `isLasting` all later
/// ones as well.
void LimitNew(std::size_t count, bool isLasting);

/// Ends that. True when an allocation has failed.
bool EndLimit();

}  // namespace orvell::test
