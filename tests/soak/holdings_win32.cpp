#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <array>

#include "module_host.h"

namespace orvell::soak {

namespace {

struct HeapUse {
    std::uint64_t bytes = 0;
    std::uint64_t blocks = 0;
};

void AddHeap(HANDLE heap, HeapUse& use) {
    HeapLock(heap);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry) != FALSE) {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) {
            use.bytes += entry.cbData;
            ++use.blocks;
        }
    }
    HeapUnlock(heap);
}

/// All heaps: that of the process, and those of its libraries.
HeapUse CountHeaps() {
    std::array<HANDLE, 64> heaps{};
    const DWORD known = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    HeapUse use;
    for (std::size_t i = 0; i < std::min<std::size_t>(known, heaps.size()); ++i) {
        AddHeap(heaps[i], use);
    }
    return use;
}

// Handles are tried one by one, since not all systems count them. They are given out from the
// bottom up.

std::uint64_t CountHandles() {
    std::uint64_t count = 0;
    for (std::uintptr_t handle = 4; handle < 0x1000; handle += 4) {
        DWORD flags = 0;
        count += GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != FALSE ? 1U : 0U;
    }
    return count;
}

std::uint64_t CountGdiObjects() {
    std::uint64_t count = 0;
    for (std::uintptr_t handle = 1; handle < 0x10000; ++handle) {
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(handle)) != 0 ? 1U : 0U;
    }
    return count;
}

BOOL CALLBACK CountWindow(HWND, LPARAM count) {
    ++*reinterpret_cast<std::uint64_t*>(count);
    return TRUE;
}

/// Windows without a parent, of this thread, shown or not.
std::uint64_t CountWindows() {
    std::uint64_t count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

}  // namespace

void CountHoldings(std::vector<Holding>& holdings) {
    const HeapUse heaps = CountHeaps();
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    holdings = {{"heap_bytes", heaps.bytes},
                {"heap_blocks", heaps.blocks},
                {"private_bytes", memory.PagefileUsage},
                {"resident_bytes", memory.WorkingSetSize},
                {"handles", CountHandles()},
                {"gdi_objects", CountGdiObjects()},
                {"windows", CountWindows()}};
}

}  // namespace orvell::soak
