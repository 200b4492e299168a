#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "memstruct/type_model.h"

namespace orvell::ui {

/// How much a value holds. Sums do not wrap; what is too much to count stays at `kUncountable`.
struct TypeExtent {
    static constexpr std::uint64_t kUncountable = std::uint64_t{1} << 62;

    std::uint64_t leaves = 0;  ///< values of base types
    std::uint64_t bytes = 0;
};

/// The extent of `count` values, one after the other.
[[nodiscard]] TypeExtent Repeat(const TypeExtent& extent, std::uint32_t count);

/// Looks a type over before a value of it is laid out row by row: a definition may claim any
/// dimension, leave elements without a type, and nest as deep as its file is long. Costs the types
/// and elements that are reached, each once.
class TypeSurvey {
  public:
    /// `type` must be resolved and not recursive.
    explicit TypeSurvey(const memstruct::TypeDef& type);

    /// The name of the first type, in the order of elements, that is unknown or has no base type;
    /// null when all are usable.
    [[nodiscard]] const std::string* UnusableType() const { return unusable_; }

    /// The extent of one value; only when all types are usable.
    [[nodiscard]] TypeExtent Extent() const { return extent_; }

  private:
    /// A structure on the way from the surveyed type to the one at hand.
    struct Step {
        const memstruct::TypeDef* type;
        std::size_t nextItem = 0;
        TypeExtent extent;
    };

    void Enter(const memstruct::TypeDef& type);
    void Continue();
    void Add(const memstruct::StructItem& item);

    std::vector<Step> way_;
    std::unordered_map<const memstruct::TypeDef*, TypeExtent> known_;
    const std::string* unusable_ = nullptr;
    TypeExtent extent_;
};

}  // namespace orvell::ui
