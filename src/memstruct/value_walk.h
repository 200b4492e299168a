#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "memstruct/type_model.h"

namespace orvell::memstruct {

/// Walks over the leaves of a value, the values of base types that it consists of, in the order in
/// which they lie in memory. All operations on whole values share this walk:
///
///     ValueWalk walk = ValueWalk::OverVector(type, count, buffer.size());
///     while (walk.ToNextLeaf()) {
///         if (!DoSomething(walk.LeafType(), walk.Rest(buffer))) {
///             return false;
///         }
///     }
///     return walk.IsComplete();
///
/// Elements come in file order, each as often as its dimension says; elements of unknown type are
/// passed over. A walk costs its leaves, and what their paths cost if these are tracked; it ends
/// when the buffer does, whatever dimensions a definition claims. The type must be resolved and
/// stay unchanged.
class ValueWalk {
  public:
    /// Over one value of `type` in a buffer of `byteCount` bytes. A null or recursive type has no
    /// value: the walk fails.
    [[nodiscard]] static ValueWalk OverValue(const TypeDef* type, std::size_t byteCount) {
        return {type, 1, byteCount, false};
    }

    /// Over `count` values, one after the other.
    [[nodiscard]] static ValueWalk OverVector(const TypeDef* type, std::uint32_t count,
                                              std::size_t byteCount) {
        return {type, count, byteCount, true};
    }

    /// Makes `Path` follow the walk, below `prefix`. Before the first leaf only.
    void TrackPaths(std::string_view prefix);

    /// Passes the leaf at hand and goes on to the next, at first to the first. False at the end of
    /// the value, and when the buffer ends before the end of the leaf that is passed.
    [[nodiscard]] bool ToNextLeaf();

    /// After the last leaf: true when the buffer held the whole value.
    [[nodiscard]] bool IsComplete() const { return stage_ == Stage::Complete; }

    // ---- The leaf at hand, after `ToNextLeaf` has returned true.

    [[nodiscard]] const TypeDef& LeafType() const { return *leaf_; }

    /// The bytes from the leaf on; too few for the leaf when the buffer ends inside it, none when
    /// it ends before.
    template <typename Byte>
    [[nodiscard]] std::span<Byte> Rest(std::span<Byte> buffer) const {
        return buffer.subspan(std::min(static_cast<std::size_t>(position_), buffer.size()));
    }

    /// Index of the vector's element that the leaf belongs to; 0 in a single value.
    [[nodiscard]] std::uint32_t ElementIndex() const { return elementIndex_; }

    /// Bytes from the start of that element to the leaf.
    [[nodiscard]] std::uint32_t ByteOffset() const {
        return static_cast<std::uint32_t>(position_ - elementStart_);
    }

    /// The leaf's path: element names joined by ".", with "[index]" behind the vector and behind
    /// elements of a dimension above 1. Empty unless tracked.
    [[nodiscard]] const std::string& Path() const { return path_; }

  private:
    enum class Stage { BeforeFirst, AtLeaf, Complete, Failed };

    /// A structure around the leaf.
    struct Level {
        const TypeDef* type;
        std::size_t item;        // of its elements with values, the one that the walk is in
        std::uint32_t index;     // of that element's values, the one that the walk is in
        std::size_t pathLength;  // of the structure's own path
    };

    ValueWalk(const TypeDef* type, std::uint32_t count, std::size_t byteCount, bool isVector);

    bool PassLeaf();
    bool AdvanceInside();
    void EnterElement();
    void Enter(const TypeDef* type);
    void UpdatePath(const Level& level);
    void AppendIndex(std::uint32_t index);

    const TypeDef* type_;
    std::uint32_t count_;
    std::uint64_t byteCount_;
    bool isVector_;
    Stage stage_ = Stage::BeforeFirst;

    const TypeDef* leaf_ = nullptr;
    std::uint64_t position_ = 0;  // wider than any size, so that no sum wraps
    std::uint64_t elementStart_ = 0;
    std::uint32_t elementIndex_ = 0;
    std::vector<Level> levels_;

    bool tracksPaths_ = false;
    std::size_t prefixLength_ = 0;
    std::string path_;
};

}  // namespace orvell::memstruct
