#include <malloc.h>
#include <time.h>
#include <unistd.h>

#include <fstream>

#include "process.h"

namespace orvell::benchmarks {

double ProcessCpuSeconds() {
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

std::uint64_t ProcessMemoryBytes() {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

std::uint64_t HeapBytes() {
    const struct mallinfo2 info = mallinfo2();
    return std::uint64_t{info.uordblks} + info.hblkhd;
}

}  // namespace orvell::benchmarks
