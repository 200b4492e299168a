#include "check/heap_blocks.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace workbench::check {
namespace {

std::size_t CountBlocksOf(HANDLE heap) {
    std::size_t count = 0;
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry) != FALSE) {
        count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
    }
    HeapUnlock(heap);
    return count;
}

}  // namespace

std::size_t CountHeapBlocks() {
    std::array<HANDLE, 64> heaps{};
    const DWORD known = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t count = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(known, heaps.size()); ++i) {
        count += CountBlocksOf(heaps[i]);
    }
    return count;
}

}  // namespace workbench::check
