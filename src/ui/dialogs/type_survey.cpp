#include "ui/dialogs/type_survey.h"

#include <algorithm>

namespace orvell::ui {

using memstruct::StructItem;
using memstruct::TypeDef;

namespace {

std::uint64_t CappedProduct(std::uint64_t amount, std::uint32_t count) {
    return count != 0 && amount > TypeExtent::kUncountable / count ? TypeExtent::kUncountable
                                                                   : amount * count;
}

std::uint64_t CappedSum(std::uint64_t left, std::uint64_t right) {
    return std::min(left + right, TypeExtent::kUncountable);
}

}  // namespace

TypeExtent Repeat(const TypeExtent& extent, std::uint32_t count) {
    return {CappedProduct(extent.leaves, count), CappedProduct(extent.bytes, count)};
}

TypeSurvey::TypeSurvey(const TypeDef& type) {
    Enter(type);
    while (!way_.empty() && unusable_ == nullptr) {
        Continue();
    }
    if (unusable_ == nullptr) {
        extent_ = known_.at(&type);
    }
}

void TypeSurvey::Enter(const TypeDef& type) {
    if (type.baseType == values::BaseTypeCode::None) {
        unusable_ = &type.name;
    } else if (type.IsStructured()) {
        way_.push_back({&type, 0, {}});
    } else {
        known_[&type] = {1, type.storedSize};
    }
}

/// Goes on to the innermost structure's next element, or completes the structure.
void TypeSurvey::Continue() {
    Step& step = way_.back();
    if (step.nextItem == step.type->structItems.size()) {
        known_[step.type] = step.extent;
        way_.pop_back();
        return;
    }
    const StructItem& item = step.type->structItems[step.nextItem];
    if (item.type == nullptr) {
        unusable_ = &item.typeName;
    } else if (known_.contains(item.type)) {
        Add(item);
    } else {
        Enter(*item.type);
    }
}

void TypeSurvey::Add(const StructItem& item) {
    Step& step = way_.back();
    const TypeExtent added = Repeat(known_.at(item.type), item.dimension);
    step.extent = {CappedSum(step.extent.leaves, added.leaves),
                   CappedSum(step.extent.bytes, added.bytes)};
    ++step.nextItem;
}

}  // namespace orvell::ui
