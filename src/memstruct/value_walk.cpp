#include "memstruct/value_walk.h"

#include <array>
#include <charconv>

namespace orvell::memstruct {

ValueWalk::ValueWalk(const TypeDef* type, std::uint32_t count, std::size_t byteCount, bool isVector)
    : type_(type), count_(count), byteCount_(byteCount), isVector_(isVector) {
    if (type == nullptr || type->recursive) {
        stage_ = Stage::Failed;
    } else if (count == 0 || !type->HoldsValues()) {
        stage_ = Stage::Complete;
    }
}

void ValueWalk::TrackPaths(std::string_view prefix) {
    tracksPaths_ = true;
    path_ = prefix;
    prefixLength_ = prefix.size();
}

bool ValueWalk::ToNextLeaf() {
    switch (stage_) {
        case Stage::BeforeFirst:
            stage_ = Stage::AtLeaf;
            EnterElement();
            return true;
        case Stage::AtLeaf:
            if (!PassLeaf()) {
                stage_ = Stage::Failed;
                return false;
            }
            if (AdvanceInside()) {
                return true;
            }
            if (++elementIndex_ == count_) {
                stage_ = Stage::Complete;
                return false;
            }
            EnterElement();
            return true;
        case Stage::Complete:
        case Stage::Failed:
            break;
    }
    return false;
}

/// A leaf has at least one byte, so that every step brings the end of the buffer nearer.
bool ValueWalk::PassLeaf() {
    const std::uint32_t width = leaf_->storedSize;
    if (width == 0 || width > byteCount_ - position_) {
        return false;
    }
    position_ += width;
    return true;
}

/// Goes to the next leaf of the same element of the vector; false when there is none.
bool ValueWalk::AdvanceInside() {
    while (!levels_.empty()) {
        Level& level = levels_.back();
        if (++level.index == level.type->itemsWithValues[level.item]->dimension) {
            level.index = 0;
            ++level.item;
        }
        if (level.item < level.type->itemsWithValues.size()) {
            UpdatePath(level);
            Enter(level.type->itemsWithValues[level.item]->type);
            return true;
        }
        levels_.pop_back();
    }
    return false;
}

void ValueWalk::EnterElement() {
    elementStart_ = position_;
    if (tracksPaths_) {
        path_.resize(prefixLength_);
        if (isVector_) {
            AppendIndex(elementIndex_);
        }
    }
    Enter(type_);
}

/// Goes to the first leaf of a value of this type. Without the levels that only wrap, each level
/// has at least two leaves, so that a walk is linear in its leaves; paths have to name every level.
void ValueWalk::Enter(const TypeDef* type) {
    while (type->IsStructured()) {
        if (!tracksPaths_ && type->wrapped != nullptr) {
            type = type->wrapped;
            continue;
        }
        levels_.push_back({type, 0, 0, path_.size()});
        UpdatePath(levels_.back());
        type = type->itemsWithValues.front()->type;
    }
    leaf_ = type;
}

/// Sets the path to that of the value which the walk is in at this level.
void ValueWalk::UpdatePath(const Level& level) {
    if (!tracksPaths_) {
        return;
    }
    const StructItem& item = *level.type->itemsWithValues[level.item];
    path_.resize(level.pathLength);
    if (!path_.empty()) {
        path_ += '.';
    }
    path_ += item.name;
    if (item.dimension > 1) {
        AppendIndex(level.index);
    }
}

void ValueWalk::AppendIndex(std::uint32_t index) {
    std::array<char, 10> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), index).ptr;
    path_ += '[';
    path_.append(digits.data(), end);
    path_ += ']';
}

}  // namespace orvell::memstruct
