#include "check/guarded_block.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace workbench::check {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::uint8_t kPattern = 0xCC;

std::vector<const GuardedBlock*>& Blocks() {
    static std::vector<const GuardedBlock*> blocks;
    return blocks;
}

std::size_t RoundedToPages(std::size_t size) {
    return std::max<std::size_t>(1, (size + kPage - 1) / kPage) * kPage;
}

/// The pages of a block with the guard pages around them.
std::uint8_t* ReservePages(std::size_t pageBytes) {
    auto* memory = static_cast<std::uint8_t*>(
        VirtualAlloc(nullptr, pageBytes + 2 * kPage, MEM_RESERVE, PAGE_NOACCESS));
    if (memory == nullptr ||
        VirtualAlloc(memory + kPage, pageBytes, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
        std::abort();  // nothing can be checked without memory
    }
    return memory;
}

}  // namespace

GuardedBlock::GuardedBlock(std::size_t size, Edge edge, std::string_view what)
    : what_(what),
      size_(size),
      pageBytes_(RoundedToPages(size)),
      reserved_(ReservePages(pageBytes_)),
      data_(reserved_ + kPage + (edge == Edge::End ? pageBytes_ - size : 0)) {
    std::fill_n(reserved_ + kPage, pageBytes_, kPattern);
    Blocks().push_back(this);
}

GuardedBlock::~GuardedBlock() {
    std::erase(Blocks(), this);
    VirtualFree(reserved_, 0, MEM_RELEASE);
}

std::span<std::uint8_t> GuardedBlock::Before() const {
    return {reserved_ + kPage, data_};
}

std::span<std::uint8_t> GuardedBlock::Behind() const {
    return {data_ + size_, reserved_ + kPage + pageBytes_};
}

bool GuardedBlock::IsSurroundingIntact() const {
    const auto isPattern = [](std::uint8_t byte) { return byte == kPattern; };
    return std::ranges::all_of(Before(), isPattern) && std::ranges::all_of(Behind(), isPattern);
}

const GuardedBlock* GuardedBlock::At(std::uintptr_t address) {
    const auto found = std::ranges::find_if(Blocks(), [address](const GuardedBlock* block) {
        const auto start = reinterpret_cast<std::uintptr_t>(block->reserved_);
        return address - start < block->pageBytes_ + 2 * kPage;
    });
    return found == Blocks().end() ? nullptr : *found;
}

const GuardedBlock* GuardedBlock::FirstTrespassed() {
    const auto found = std::ranges::find_if_not(Blocks(), &GuardedBlock::IsSurroundingIntact);
    return found == Blocks().end() ? nullptr : *found;
}

void GuardedBlock::ForgetAll() {
    Blocks().clear();
}

}  // namespace workbench::check
