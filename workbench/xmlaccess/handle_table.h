#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <utility>

namespace workbench::xmlaccess {

/// Gives items handles that can be checked: an index, a generation that changes whenever the place
/// is used again, and the table's own tag, so that a handle of another table is refused too.
///
/// Every operation is O(1). Pointers from `Find` hold until the item is removed.
template <typename Item, std::uint32_t kTag>
class HandleTable {
    static_assert(kTag >= 1 && kTag <= 3);

  public:
    /// Handle of the new item; 0 when `kMaxItems` are in use.
    [[nodiscard]] std::uint32_t Add(Item item) {
        std::optional<std::uint32_t> index = TakePlace();
        if (!index) {
            return 0;
        }
        Place& place = places_[*index];
        place.item.emplace(std::move(item));
        return Handle(*index, place.generation);
    }

    /// Null for 0 and for every handle that is not in use.
    [[nodiscard]] Item* Find(std::uint32_t handle) {
        Place* place = FindPlace(handle);
        return place == nullptr ? nullptr : &*place->item;
    }

    bool Remove(std::uint32_t handle) {
        Place* place = FindPlace(handle);
        if (place == nullptr) {
            return false;
        }
        place->item.reset();
        place->generation = (place->generation + 1) & kGenerationMask;
        free_.push_back(handle & kIndexMask);
        return true;
    }

    static constexpr std::size_t kMaxItems = std::size_t{1} << 18;

  private:
    static constexpr unsigned kGenerationShift = 18;
    static constexpr unsigned kTagShift = 30;
    static constexpr std::uint32_t kIndexMask = (1U << kGenerationShift) - 1;
    static constexpr std::uint32_t kGenerationMask = (1U << (kTagShift - kGenerationShift)) - 1;

    // Places rest in a queue before they are used again, so that a stale handle of a long walk
    // stays recognisable for millions of steps.
    static constexpr std::size_t kRestingPlaces = 1024;

    struct Place {
        std::uint32_t generation = 0;
        std::optional<Item> item;
    };

    static std::uint32_t Handle(std::uint32_t index, std::uint32_t generation) {
        return (kTag << kTagShift) | (generation << kGenerationShift) | index;
    }

    std::optional<std::uint32_t> TakePlace() {
        const bool grow = free_.size() < kRestingPlaces && places_.size() < kMaxItems;
        if (!grow && free_.empty()) {
            return std::nullopt;
        }
        if (grow) {
            places_.emplace_back();
            return static_cast<std::uint32_t>(places_.size() - 1);
        }
        const std::uint32_t index = free_.front();
        free_.pop_front();
        return index;
    }

    Place* FindPlace(std::uint32_t handle) {
        const std::uint32_t index = handle & kIndexMask;
        if (index >= places_.size()) {
            return nullptr;
        }
        Place& place = places_[index];
        return place.item && handle == Handle(index, place.generation) ? &place : nullptr;
    }

    std::deque<Place> places_;
    std::deque<std::uint32_t> free_;
};

}  // namespace workbench::xmlaccess
