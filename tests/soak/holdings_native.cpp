#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "module_host.h"

#if defined(__SANITIZE_ADDRESS__)
// The sanitizers' interface, whose header comes with only one of the compilers.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace orvell::soak {

namespace {

std::uint64_t HeapBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return std::uint64_t{info.uordblks} + info.hblkhd;
#endif
}

std::uint64_t ResidentBytes() {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> pages;
    return pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

/// The one that reads the folder counts itself, each time.
std::uint64_t OpenFiles() {
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return static_cast<std::uint64_t>(std::distance(begin(files), end(files)));
}

}  // namespace

void CountHoldings(std::vector<Holding>& holdings) {
    holdings = {{"heap_bytes", HeapBytes()},
                {"resident_bytes", ResidentBytes()},
                {"open_files", OpenFiles()}};
}

}  // namespace orvell::soak
