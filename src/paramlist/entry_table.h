#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "paramlist/parameter_entry.h"

namespace orvell::paramlist {

/// Finds entries by number in constant time and keeps those with equal numbers together. The
/// entries belong to an `EntryPool`.
///
/// A hash table with chains: the entries of one number form a ring, and each slot of the table
/// holds a chain of rings, each by its last entry. The 8 numbers of a bucket lie in 8 neighbouring
/// slots, which share a cache line. The hash function is drawn at random from a universal family
/// (multiply and shift), so that no file can be made whose numbers all meet in one slot.
class EntryTable {
  public:
    /// The oldest entry with this number, null when there is none.
    [[nodiscard]] ParameterEntry* FindFirst(std::uint32_t number) const;

    /// Has the processor fetch from memory what finding the numbers soon behind this one will need.
    /// Changes nothing but the time that takes.
    void PrefetchBehind(std::uint32_t number) const;

    /// As `PrefetchBehind` for this number alone, of which the slot comes first and, when that has
    /// arrived, the entry.
    void PrefetchSlot(std::uint32_t number) const;
    void PrefetchEntry(std::uint32_t number) const;

    /// Makes room for one more entry. Throws std::bad_alloc and changes nothing when memory is
    /// short.
    void Reserve();

    /// Adds the entry behind those with its number. `Reserve` must have made room.
    void Insert(ParameterEntry& entry) noexcept;

    /// Takes out every entry for which `isUnwanted` is true and gives it to `release`.
    template <typename IsUnwanted, typename Release>
    void RemoveIf(const IsUnwanted& isUnwanted, const Release& release);

    /// Forgets all entries and gives the table's memory back.
    void Clear() noexcept;

    [[nodiscard]] std::size_t EntryCount() const { return entryCount_; }

    /// Calls `visit` with every entry by ascending number, equal ones in the order of their
    /// insertion, until it returns false. True when it never did.
    template <typename Visit>
    bool VisitInOrder(const Visit& visit) const;

  private:
    struct NumberedRing {
        std::uint32_t number;
        const ParameterEntry* first;
    };

    /// Returns the last of the remaining entries, null when none remain.
    template <typename IsUnwanted, typename Release>
    ParameterEntry* RemoveFromRing(ParameterEntry& last, const IsUnwanted& isUnwanted,
                                   const Release& release);

    [[nodiscard]] std::size_t SlotOf(std::uint32_t number) const;

    /// How many slots ahead to prefetch when all are visited.
    static constexpr std::size_t kVisitDistance = 16;

    /// Has the entry in this slot fetched, if there are such a slot and such an entry.
    void PrefetchAt(std::size_t slot) const;

    /// Where the ring of this number hangs in its chain: a null pointer at the chain's end if there
    /// is no such ring.
    [[nodiscard]] ParameterEntry** LinkOf(std::uint32_t number);

    template <typename Visit>
    static bool VisitRing(const ParameterEntry& first, const Visit& visit);
    [[nodiscard]] bool HasWideGaps() const;
    [[nodiscard]] std::vector<NumberedRing> SortedRings() const;
    void Grow(std::size_t slotCount);
    void ShrinkIfSparse() noexcept;
    void AdaptHash() noexcept;  // to the number of slots
    ParameterEntry* UnlinkRings() noexcept;
    void LinkRings(ParameterEntry* chain) noexcept;
    void ExtendRange(std::uint32_t number);
    void ForgetRange();

    std::vector<ParameterEntry*> slots_;  ///< their number is a power of two or 0
    unsigned unusedHashBits_ = 32;        ///< 32 less the binary logarithm of the number of slots
    std::uint32_t multiplier_ = 0;        ///< of the hash function, odd; 0: not drawn yet
    std::size_t entryCount_ = 0;
    std::uint32_t smallest_ = std::numeric_limits<std::uint32_t>::max();  ///< of all numbers
    std::uint32_t largest_ = 0;
};

template <typename Visit>
bool EntryTable::VisitInOrder(const Visit& visit) const {
    if (HasWideGaps()) {
        return std::ranges::all_of(SortedRings(), [&visit](const NumberedRing& ring) {
            return VisitRing(*ring.first, visit);
        });
    }
    // Wider than a number, so that the largest one can be passed; none when there are no entries.
    for (std::uint64_t wide = smallest_; wide <= largest_; ++wide) {
        const auto number = static_cast<std::uint32_t>(wide);
        PrefetchBehind(number);
        const ParameterEntry* const first = FindFirst(number);
        if (first != nullptr && !VisitRing(*first, visit)) {
            return false;
        }
    }
    return true;
}

template <typename Visit>
bool EntryTable::VisitRing(const ParameterEntry& first, const Visit& visit) {
    const ParameterEntry* entry = &first;
    do {
        if (!visit(*entry)) {
            return false;
        }
        entry = entry->nextEqual_;
    } while (entry != &first);
    return true;
}

template <typename IsUnwanted, typename Release>
void EntryTable::RemoveIf(const IsUnwanted& isUnwanted, const Release& release) {
    ForgetRange();
    for (std::size_t place = 0; place < slots_.size(); ++place) {
        PrefetchAt(place + kVisitDistance);
        ParameterEntry** link = &slots_[place];
        while (*link != nullptr) {
            ParameterEntry* const nextRing = (*link)->nextRing_;
            *link = RemoveFromRing(**link, isUnwanted, release);
            if (*link != nullptr) {
                ExtendRange((*link)->number_);
                link = &(*link)->nextRing_;
            }
            *link = nextRing;
        }
    }
    ShrinkIfSparse();
}

template <typename IsUnwanted, typename Release>
ParameterEntry* EntryTable::RemoveFromRing(ParameterEntry& last, const IsUnwanted& isUnwanted,
                                           const Release& release) {
    ParameterEntry* firstKept = nullptr;
    ParameterEntry* lastKept = nullptr;
    ParameterEntry* entry = last.nextEqual_;
    for (bool isLast = false; !isLast;) {
        isLast = entry == &last;
        ParameterEntry* const next = entry->nextEqual_;
        if (isUnwanted(*entry)) {
            release(*entry);
            --entryCount_;
        } else {
            (lastKept == nullptr ? firstKept : lastKept->nextEqual_) = entry;
            lastKept = entry;
        }
        entry = next;
    }
    if (lastKept != nullptr) {
        lastKept->nextEqual_ = firstKept;
    }
    return lastKept;
}

}  // namespace orvell::paramlist
