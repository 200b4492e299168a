#include "paramlist/entry_table.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <random>
#include <utility>

namespace orvell::paramlist {
namespace {

constexpr unsigned kHashBits = 32;
constexpr std::uint32_t kNumbersPerBucket = 8;
constexpr std::size_t kSmallestSlotCount = 16;  // at least a bucket's

// An update cycle that moves all parameters holds each of them twice for a while: a table that has
// grown for it is not made smaller, only to grow again in the next cycle.
constexpr std::size_t kSlotsToKeep = 4;

// Up to this many numbers for each entry it is cheaper to look for every number than to sort.
constexpr std::uint32_t kWidestGap = 8;

// How many numbers ahead to prefetch when numbers ascend: far enough for what is fetched to arrive
// in time, near enough for it to be there still. A slot must have arrived before its entry is
// known.
constexpr std::uint32_t kEntryDistance = 16;
constexpr std::uint32_t kSlotDistance = 64;
constexpr int kForWriting = 1;
constexpr std::size_t kCacheLineBytes = 64;

}  // namespace

ParameterEntry* EntryTable::FindFirst(std::uint32_t number) const {
    if (slots_.empty()) {
        return nullptr;
    }
    for (ParameterEntry* ring = slots_[SlotOf(number)]; ring != nullptr; ring = ring->nextRing_) {
        if (ring->number_ == number) {
            return ring->nextEqual_;
        }
    }
    return nullptr;
}

void EntryTable::PrefetchBehind(std::uint32_t number) const {
    PrefetchSlot(number + kSlotDistance);
    PrefetchEntry(number + kEntryDistance);
}

void EntryTable::PrefetchSlot(std::uint32_t number) const {
    if (!slots_.empty()) {
        __builtin_prefetch(&slots_[SlotOf(number)]);
    }
}

void EntryTable::PrefetchEntry(std::uint32_t number) const {
    if (!slots_.empty()) {
        PrefetchAt(SlotOf(number));
    }
}

void EntryTable::PrefetchAt(std::size_t slot) const {
    if (slot < slots_.size()) {
        // An entry lies in two cache lines. Those at address 0 may be asked for as well, but no
        // pointer be made from a null pointer.
        const auto entry = reinterpret_cast<std::uintptr_t>(slots_[slot]);
        __builtin_prefetch(reinterpret_cast<const void*>(entry), kForWriting);
        __builtin_prefetch(reinterpret_cast<const void*>(entry + kCacheLineBytes), kForWriting);
    }
}

void EntryTable::Reserve() {
    if (entryCount_ == slots_.size()) {
        Grow(std::max(slots_.size() * 2, kSmallestSlotCount));
    }
}

void EntryTable::Insert(ParameterEntry& entry) noexcept {
    ParameterEntry** const link = LinkOf(entry.number_);
    ParameterEntry* const previous = *link;
    if (previous == nullptr) {
        entry.nextEqual_ = &entry;
        entry.nextRing_ = nullptr;
    } else {
        entry.nextEqual_ = std::exchange(previous->nextEqual_, &entry);
        entry.nextRing_ = previous->nextRing_;
    }
    *link = &entry;
    ++entryCount_;
    ExtendRange(entry.number_);
}

void EntryTable::Clear() noexcept {
    slots_ = std::vector<ParameterEntry*>();
    unusedHashBits_ = kHashBits;
    entryCount_ = 0;
    ForgetRange();
}

bool EntryTable::HasWideGaps() const {
    return entryCount_ != 0 && (largest_ - smallest_) / kWidestGap > entryCount_;
}

std::vector<EntryTable::NumberedRing> EntryTable::SortedRings() const {
    std::vector<NumberedRing> rings;
    for (const ParameterEntry* ring : slots_) {
        for (; ring != nullptr; ring = ring->nextRing_) {
            rings.push_back({ring->number_, ring->nextEqual_});
        }
    }
    std::sort(rings.begin(), rings.end(), [](const NumberedRing& left, const NumberedRing& right) {
        return left.number < right.number;
    });
    return rings;
}

void EntryTable::Grow(std::size_t slotCount) {
    if (multiplier_ == 0) {
        multiplier_ = std::random_device()() | 1;
    }
    std::vector<ParameterEntry*> chains(slotCount);
    chains.swap(slots_);
    AdaptHash();
    for (ParameterEntry* const chain : chains) {
        LinkRings(chain);
    }
}

void EntryTable::ShrinkIfSparse() noexcept {
    if (entryCount_ == 0) {
        Clear();
        return;
    }
    const std::size_t slotCount = std::max(std::bit_ceil(entryCount_), kSmallestSlotCount);
    if (slotCount > slots_.size() / kSlotsToKeep) {
        return;
    }
    ParameterEntry* const chain = UnlinkRings();
    slots_.resize(slotCount);
    slots_.shrink_to_fit();
    AdaptHash();
    LinkRings(chain);
}

ParameterEntry* EntryTable::UnlinkRings() noexcept {
    ParameterEntry* chain = nullptr;
    for (ParameterEntry*& slot : slots_) {
        ParameterEntry* ring = std::exchange(slot, nullptr);
        while (ring != nullptr) {
            ParameterEntry* const next = std::exchange(ring->nextRing_, chain);
            chain = std::exchange(ring, next);
        }
    }
    return chain;
}

void EntryTable::LinkRings(ParameterEntry* chain) noexcept {
    while (chain != nullptr) {
        ParameterEntry*& slot = slots_[SlotOf(chain->number_)];
        ParameterEntry* const next = std::exchange(chain->nextRing_, slot);
        slot = std::exchange(chain, next);
    }
}

void EntryTable::AdaptHash() noexcept {
    unusedHashBits_ = kHashBits - static_cast<unsigned>(std::countr_zero(slots_.size()));
}

void EntryTable::ExtendRange(std::uint32_t number) {
    smallest_ = std::min(smallest_, number);
    largest_ = std::max(largest_, number);
}

void EntryTable::ForgetRange() {
    smallest_ = std::numeric_limits<std::uint32_t>::max();
    largest_ = 0;
}

std::size_t EntryTable::SlotOf(std::uint32_t number) const {
    const std::uint32_t bucket = number / kNumbersPerBucket;
    const std::uint32_t hash = (bucket * multiplier_) >> unusedHashBits_;
    return hash ^ (number % kNumbersPerBucket);
}

ParameterEntry** EntryTable::LinkOf(std::uint32_t number) {
    ParameterEntry** link = &slots_[SlotOf(number)];
    while (*link != nullptr && (*link)->number_ != number) {
        link = &(*link)->nextRing_;
    }
    return link;
}

}  // namespace orvell::paramlist
