#include "fuzz/values/reference_names.h"

#include "fuzz/values/reference_numbers.h"

namespace orvell::fuzz {

using values::EnumItem;

namespace {

using Items = std::vector<EnumItem>;

const EnumItem* ItemOf(const Items& items, std::uint32_t value) {
    for (const EnumItem& item : items) {
        if (item.value == value) {
            return &item;
        }
    }
    return nullptr;
}

/// The item with the smallest value of those that exist and are wanted.
template <typename Wanted>
const EnumItem* SmallestItem(const Items& items, const Wanted& isWanted) {
    const EnumItem* smallest = nullptr;
    for (const EnumItem& item : items) {
        if (&item == ItemOf(items, item.value) && isWanted(item) &&
            (smallest == nullptr || item.value < smallest->value)) {
            smallest = &item;
        }
    }
    return smallest;
}

}  // namespace

std::string ReferenceName(const Items& items, std::uint32_t value) {
    const EnumItem* const item = ItemOf(items, value);
    return item != nullptr && !item->name.empty() ? item->name : std::to_string(value);
}

std::uint32_t ReadReferenceName(const Items& items, const std::string& text) {
    const EnumItem* const named =
        SmallestItem(items, [&](const EnumItem& item) { return item.name == text; });
    return named != nullptr ? named->value : static_cast<std::uint32_t>(ReadReferenceInteger(text));
}

std::string ReferenceDefaultName(const Items& items) {
    const EnumItem* const named =
        SmallestItem(items, [](const EnumItem& item) { return !item.name.empty(); });
    return named != nullptr ? named->name : "0";
}

}  // namespace orvell::fuzz
