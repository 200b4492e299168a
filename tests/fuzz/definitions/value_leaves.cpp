#include "fuzz/definitions/value_leaves.h"

#include <algorithm>

namespace orvell::fuzz {

bool Leaves::Add(std::size_t index, const std::string& path) {
    const ModelType& type = model_.types[index];
    if (type.isRecursive) {
        return false;
    }
    if (!type.IsStructured()) {
        list_.push_back({path, index, position_, element_, elementPosition_});
        if (type.storedSize > byteCount_ - position_) {
            return false;
        }
        position_ += type.storedSize;
        return true;
    }
    return std::all_of(type.items.begin(), type.items.end(),
                       [&](const ModelItem& item) { return AddItem(item, path); });
}

bool Leaves::AddVector(std::size_t index, std::uint32_t count) {
    if (model_.types[index].isRecursive) {
        return false;
    }
    for (std::uint32_t i = 0; i < count && model_.types[index].holdsValues; ++i) {
        element_ = i;
        elementPosition_ = position_;
        if (!Add(index, '[' + std::to_string(i) + ']')) {
            return false;
        }
    }
    return true;
}

bool Leaves::AddItem(const ModelItem& item, const std::string& path) {
    if (!item.type || !model_.types[*item.type].holdsValues) {
        return true;
    }
    const std::string itemPath = path.empty() ? item.name : path + '.' + item.name;
    for (std::uint32_t i = 0; i < item.dimension; ++i) {
        const std::string index = '[' + std::to_string(i) + ']';
        if (!Add(*item.type, item.dimension > 1 ? itemPath + index : itemPath)) {
            return false;
        }
    }
    return true;
}

}  // namespace orvell::fuzz
