#include "support/short_memory.h"

#include <cstdlib>
#include <new>

// The linker leads all calls of malloc to __wrap_malloc and those of __real_malloc to malloc; so
// for the others.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void __real_free(void* memory);
void* __wrap_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void __wrap_free(void* memory);
}

namespace {

using orvell::test::Shortage;

struct Budget {
    bool isLimited = false;
    bool isSuspended = false;
    Shortage shortage = Shortage::Passing;
    std::size_t remaining = 0;
    bool hasFailed = false;
};

Budget budget;
std::size_t heldBlocks = 0;

/// False when this allocation must fail.
bool TakeFromBudget() {
    if (!budget.isLimited || budget.isSuspended) {
        return true;
    }
    if (budget.remaining > 0) {
        --budget.remaining;
        return true;
    }
    if (budget.hasFailed && budget.shortage == Shortage::Passing) {
        return true;
    }
    budget.hasFailed = true;
    return false;
}

void* Counted(void* block) {
    heldBlocks += block != nullptr ? 1 : 0;
    return block;
}

}  // namespace

namespace orvell::test {

std::size_t HeldBlocks() {
    return heldBlocks;
}

void BeginShortage(Shortage shortage, std::size_t count) {
    budget = {};
    budget.isLimited = true;
    budget.shortage = shortage;
    budget.remaining = count;
}

bool EndShortage() {
    budget.isLimited = false;
    return budget.hasFailed;
}

void SuspendShortage(bool isSuspended) {
    budget.isSuspended = isSuspended;
}

}  // namespace orvell::test

void* __wrap_malloc(std::size_t size) {
    return TakeFromBudget() ? Counted(__real_malloc(size)) : nullptr;
}

void* __wrap_calloc(std::size_t count, std::size_t size) {
    return TakeFromBudget() ? Counted(__real_calloc(count, size)) : nullptr;
}

void __wrap_free(void* memory) {
    heldBlocks -= memory != nullptr ? 1 : 0;
    __real_free(memory);
}

void* operator new(std::size_t size) {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    std::free(memory);
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
