#pragma once

#include <cstddef>

namespace workbench::check {

/// Blocks in use in all heaps of the process, whichever run-time they belong to.
[[nodiscard]] std::size_t CountHeapBlocks();

}  // namespace workbench::check
