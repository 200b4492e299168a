#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "paramlist/parameter_entry.h"

namespace orvell::paramlist {

/// Finds entries by number in constant time and keeps those with equal numbers together. The
/// entries belong to an `EntryPool`.
///
/// A hash table with chains: the entries of one number form a ring, and each slot of the table
/// holds a chain of rings, each by its last entry. The 8 numbers of a bucket lie in 8 neighbouring
/// slots, one cache line. The hash function is drawn at random from a universal family (multiply
/// and shift), so that no file can be made whose numbers all meet in one slot.
class EntryTable {
  public:
    EntryTable() = default;
    EntryTable(const EntryTable&) = delete;
    EntryTable& operator=(const EntryTable&) = delete;
    EntryTable(EntryTable&&) noexcept = default;
    EntryTable& operator=(EntryTable&&) noexcept = default;

    /// The oldest entry with this number, null when there is none.
    [[nodiscard]] ParameterEntry* FindFirst(std::uint32_t number) const;

    /// Makes room for one more entry. Throws std::bad_alloc and changes nothing when memory is
    /// short.
    void Reserve();

    /// Adds the entry behind those with its number. `Reserve` must have made room.
    void Insert(ParameterEntry& entry) noexcept;

    /// Takes out every entry for which `isUnwanted` is true and gives it to `release`.
    template <typename IsUnwanted, typename ReleaseEntry>
    void RemoveIf(const IsUnwanted& isUnwanted, const ReleaseEntry& release);

    /// Forgets all entries and gives the table's memory back.
    void Clear() noexcept;

    [[nodiscard]] std::size_t EntryCount() const { return entryCount_; }

    /// All entries by ascending number, equal ones in the order of their insertion.
    [[nodiscard]] std::vector<const ParameterEntry*> EntriesInOrder() const;

  private:
    [[nodiscard]] std::size_t SlotOf(std::uint32_t number) const;
    [[nodiscard]] ParameterEntry* FindLast(std::uint32_t number) const;
    [[nodiscard]] std::vector<const ParameterEntry*> OldestEntries() const;
    void Grow();
    void Shrink() noexcept;
    ParameterEntry* UnlinkAllRings() noexcept;
    void LinkRings(ParameterEntry* chain) noexcept;

    std::vector<ParameterEntry*> slots_;  ///< a power of two, or none
    unsigned slotBits_ = 0;               ///< binary logarithm of the number of slots
    std::uint32_t multiplier_ = 0;        ///< odd; 0: not drawn yet
    std::size_t entryCount_ = 0;
};

}  // namespace orvell::paramlist
