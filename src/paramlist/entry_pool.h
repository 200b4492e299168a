#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "paramlist/parameter_entry.h"

namespace orvell::paramlist {

/// Memory for entries in slabs of 64, so that a million entries cost no million allocations. A slab
/// whose last entry is released goes back to the system at once.
class EntryPool {
  public:
    EntryPool();
    EntryPool(EntryPool&&) noexcept;
    EntryPool& operator=(EntryPool&&) noexcept;
    ~EntryPool();

    /// An empty entry that is linked nowhere. Throws std::bad_alloc and changes nothing when memory
    /// is short.
    [[nodiscard]] ParameterEntry* Acquire();

    /// Takes back an entry that `Acquire` gave.
    void Release(ParameterEntry& entry) noexcept;

    /// Releases all entries.
    void Clear() noexcept;

    /// Calls `visit` with every acquired entry, in no particular order.
    template <typename Visit>
    void ForEach(const Visit& visit) const;

  private:
    struct Slab;

    static Slab& SlabOf(ParameterEntry& entry);
    void MoveTo(std::size_t place, Slab& slab) noexcept;

    /// Those without room first, then from `fullCount_` on those with room.
    std::vector<std::unique_ptr<Slab>> slabs_;
    std::size_t fullCount_ = 0;
};

}  // namespace orvell::paramlist
