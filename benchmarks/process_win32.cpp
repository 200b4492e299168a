#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <array>

#include "process.h"

namespace orvell::benchmarks {
namespace {

constexpr double kSecondsPerTick = 1e-7;

double SecondsOf(const FILETIME& time) {
    const std::uint64_t ticks = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    return static_cast<double>(ticks) * kSecondsPerTick;
}

}  // namespace

double ProcessCpuSeconds() {
    FILETIME created = {};
    FILETIME exited = {};
    FILETIME kernel = {};
    FILETIME user = {};
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    return SecondsOf(kernel) + SecondsOf(user);
}

std::uint64_t ProcessMemoryBytes() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage;
}

std::uint64_t HeapBytes() {
    std::array<HANDLE, 64> heaps = {};
    const DWORD found = GetProcessHeaps(heaps.size(), heaps.data());
    std::uint64_t bytes = 0;
    for (DWORD index = 0; index < std::min<DWORD>(found, heaps.size()); ++index) {
        PROCESS_HEAP_ENTRY entry = {};
        while (HeapWalk(heaps[index], &entry) != 0) {
            const bool isAllocated = (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
            bytes += isAllocated ? entry.cbData + entry.cbOverhead : 0;
        }
    }
    return bytes;
}

}  // namespace orvell::benchmarks
