#pragma once

#include <cstdint>

namespace orvell::benchmarks {

/// CPU time that the process has used so far, in seconds. Windows counts it in steps of 10 to 16
/// milliseconds.
[[nodiscard]] double ProcessCpuSeconds();

/// Memory that belongs to the process alone, in bytes.
[[nodiscard]] std::uint64_t ProcessMemoryBytes();

/// Bytes that are allocated from the heap, as far as the run-time library knows.
[[nodiscard]] std::uint64_t HeapBytes();

}  // namespace orvell::benchmarks
