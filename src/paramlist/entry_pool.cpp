#include "paramlist/entry_pool.h"

#include <limits>
#include <type_traits>
#include <utility>

namespace orvell::paramlist {

ParameterEntry* EntryPool::Acquire() {
    if (fullCount_ == slabs_.size()) {
        slabs_.push_back(std::make_unique<Slab>());
        slabs_.back()->place = slabs_.size() - 1;
    }
    Slab& slab = *slabs_.back();
    const int position = std::countr_one(slab.used);
    slab.used |= std::uint64_t{1} << position;
    if (slab.used == std::numeric_limits<std::uint64_t>::max()) {
        Exchange(slab.place, fullCount_);
        ++fullCount_;
    }
    ParameterEntry& entry = slab.entries[static_cast<std::size_t>(position)];
    entry.positionInSlab_ = static_cast<std::uint8_t>(position);
    return &entry;
}

void EntryPool::Release(ParameterEntry& entry) noexcept {
    Slab& slab = SlabOf(entry);
    entry.flags_ = 0;
    entry.value_.Clear();
    entry.SetName({});
    entry.SetComment({});
    if (slab.place < fullCount_) {
        --fullCount_;
        Exchange(slab.place, fullCount_);
    }
    slab.used &= ~(std::uint64_t{1} << entry.positionInSlab_);
    if (slab.used == 0) {
        Exchange(slab.place, slabs_.size() - 1);
        slabs_.pop_back();
        if (slabs_.empty()) {
            Clear();
        }
    }
}

void EntryPool::Clear() noexcept {
    slabs_ = std::vector<std::unique_ptr<Slab>>();
    fullCount_ = 0;
}

EntryPool::Slab& EntryPool::SlabOf(ParameterEntry& entry) {
    static_assert(std::is_standard_layout_v<Slab>, "a slab begins with its first entry");
    ParameterEntry* const first = &entry - entry.positionInSlab_;
    return *reinterpret_cast<Slab*>(first);
}

void EntryPool::Exchange(std::size_t place, std::size_t otherPlace) noexcept {
    std::swap(slabs_[place], slabs_[otherPlace]);
    slabs_[place]->place = place;
    slabs_[otherPlace]->place = otherPlace;
}

}  // namespace orvell::paramlist
