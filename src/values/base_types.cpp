#include "values/base_types.h"

#include <algorithm>
#include <utility>

namespace orvell::values {

EnumItemList::EnumItemList(std::vector<EnumItem> itemsInFileOrder)
    : items_(std::move(itemsInFileOrder)) {
    std::stable_sort(items_.begin(), items_.end(), [](const EnumItem& left, const EnumItem& right) {
        return left.value < right.value;
    });
    const auto sameValue = [](const EnumItem& left, const EnumItem& right) {
        return left.value == right.value;
    };
    items_.erase(std::unique(items_.begin(), items_.end(), sameValue), items_.end());

    indexByName_.reserve(items_.size());
    for (std::size_t index = 0; index < items_.size(); ++index) {
        indexByName_.try_emplace(items_[index].name, index);
    }
}

const EnumItem* EnumItemList::FindValue(std::uint32_t value) const {
    const auto item = std::lower_bound(
        items_.begin(), items_.end(), value,
        [](const EnumItem& candidate, std::uint32_t wanted) { return candidate.value < wanted; });
    return item != items_.end() && item->value == value ? &*item : nullptr;
}

const EnumItem* EnumItemList::FindName(std::string_view name) const {
    const auto found = indexByName_.find(name);
    return found != indexByName_.end() ? &items_[found->second] : nullptr;
}

DateFormatCode DateFormatOf(const TypeDescription& type) {
    return type.dateFormat == DateFormatCode::MonthFirst ? DateFormatCode::MonthFirst
                                                         : DateFormatCode::DayFirst;
}

bool IsImplicitType(BaseTypeCode code) {
    return code == BaseTypeCode::Float || code == BaseTypeCode::Double ||
           code == BaseTypeCode::Duration || code == BaseTypeCode::Time;
}

std::int32_t ProposedDisplayFormat(BaseTypeCode code) {
    constexpr std::int32_t kNoFormat = -1;
    switch (code) {
        case BaseTypeCode::Int:
            return static_cast<std::int32_t>(DisplayFormat::Signed);
        case BaseTypeCode::UInt:
            return static_cast<std::int32_t>(DisplayFormat::Unsigned);
        default:
            return kNoFormat;
    }
}

std::vector<std::string> EnumItemNames(const EnumItemList& items) {
    std::vector<std::string> names;
    for (const EnumItem& item : items.Items()) {
        if (!item.name.empty()) {
            names.push_back(item.name);
        }
    }
    return names;
}

}  // namespace orvell::values
