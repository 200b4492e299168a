#include "unit/paramlist/counted_memory.h"

#include <cstdlib>

namespace {

using orvell::test::kNoLimit;
using orvell::test::Shortage;

constexpr std::size_t kBookkeeping = 16;

std::size_t takenBytes = 0;
std::size_t totalBytes = 0;
std::size_t remainingAllocations = kNoLimit;
Shortage shortageBehind = Shortage::Lasting;

/// What a block costs in the C run-time's heap: a header of 8 bytes, in steps of 8.
std::size_t CostOf(std::size_t size) {
    return (size + 8 + 7) / 8 * 8;
}

}  // namespace

namespace orvell::test {

std::size_t TakenBytes() {
    return takenBytes;
}

std::size_t TotalBytes() {
    return totalBytes;
}

void LimitAllocations(std::size_t count, Shortage shortage) {
    remainingAllocations = count;
    shortageBehind = shortage;
}

}  // namespace orvell::test

void* operator new(std::size_t size) {
    if (remainingAllocations == 0 || size > kNoLimit / 4) {
        if (shortageBehind == Shortage::Passing) {
            remainingAllocations = kNoLimit;
        }
        throw std::bad_alloc();
    }
    if (remainingAllocations != kNoLimit) {
        --remainingAllocations;
    }
    auto* const block = static_cast<std::size_t*>(std::malloc(size + kBookkeeping));
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *block = CostOf(size);
    takenBytes += *block;
    totalBytes += *block;
    return reinterpret_cast<char*>(block) + kBookkeeping;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        auto* const block =
            reinterpret_cast<std::size_t*>(static_cast<char*>(memory) - kBookkeeping);
        takenBytes -= *block;
        std::free(block);
    }
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete[](void* memory) noexcept {
    operator delete(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}
