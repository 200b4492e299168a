#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "paramlist/parameter_entry.h"

namespace orvell::paramlist {

/// Memory for entries in slabs of 64, so that a million entries cost no million allocations. A slab
/// whose last entry is released goes back to the system at once.
class EntryPool {
  public:
    /// An empty entry that is linked nowhere. Throws std::bad_alloc and changes nothing when memory
    /// is short.
    [[nodiscard]] ParameterEntry* Acquire();

    /// Takes back an entry that `Acquire` gave.
    void Release(ParameterEntry& entry) noexcept;

    /// Releases all entries.
    void Clear() noexcept;

    /// Calls `visit` with every acquired entry, in no particular order.
    template <typename Visit>
    void ForEach(const Visit& visit) const {
        for (const std::unique_ptr<Slab>& slab : slabs_) {
            for (std::uint64_t rest = slab->used; rest != 0; rest &= rest - 1) {
                visit(slab->entries[static_cast<std::size_t>(std::countr_zero(rest))]);
            }
        }
    }

  private:
    static constexpr std::size_t kEntriesPerSlab = 64;

    struct Slab {
        std::array<ParameterEntry, kEntriesPerSlab> entries;
        std::uint64_t used = 0;  ///< one bit an entry
        std::size_t place = 0;   ///< in `slabs_`
    };

    [[nodiscard]] static Slab& SlabOf(ParameterEntry& entry);
    void Exchange(std::size_t place, std::size_t otherPlace) noexcept;

    /// Those without room first, from `fullCount_` on those with room.
    std::vector<std::unique_ptr<Slab>> slabs_;
    std::size_t fullCount_ = 0;
};

}  // namespace orvell::paramlist
