#include "support/limited_memory.h"

#include <windows.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> heldBlocks = 0;
std::atomic<DWORD> limitedThread = 0;
std::size_t remaining = 0;
bool isLastingLimit = false;
bool hasFailed = false;

/// False when this allocation must fail.
bool TakeFromLimit() {
    if (limitedThread != GetCurrentThreadId()) {
        return true;
    }
    if (remaining > 0) {
        --remaining;
        return true;
    }
    if (hasFailed && !isLastingLimit) {
        return true;
    }
    hasFailed = true;
    return false;
}

}  // namespace

namespace orvell::test {

std::size_t HeldNewBlocks() {
    return heldBlocks;
}

void LimitNew(std::size_t count, bool isLasting) {
    remaining = count;
    isLastingLimit = isLasting;
    hasFailed = false;
    limitedThread = GetCurrentThreadId();
}

bool EndLimit() {
    limitedThread = 0;
    return hasFailed;
}

}  // namespace orvell::test

void* operator new(std::size_t size) {
    void* const block = TakeFromLimit() ? std::malloc(size == 0 ? 1 : size) : nullptr;
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++heldBlocks;
    return block;
}

void operator delete(void* memory) noexcept {
    heldBlocks -= memory != nullptr ? 1U : 0U;
    std::free(memory);
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
