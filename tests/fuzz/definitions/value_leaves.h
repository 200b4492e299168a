#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/definitions/definition_model.h"

namespace orvell::fuzz {

struct Leaf {
    std::string path;
    std::size_t type;
    std::size_t offset;
    std::uint32_t element;      ///< of a vector
    std::size_t elementOffset;  ///< of that element
};

/// The leaves of a value by plain recursion. Elements that hold no values are left out, or a
/// definition could let the recursion go on for ever.
class Leaves {
  public:
    Leaves(const DefinitionModel& model, std::size_t byteCount)
        : model_(model), byteCount_(byteCount) {}

    /// The leaves of a value of the type at this index; false when the bytes end before it does, or
    /// when it is recursive.
    bool Add(std::size_t index, const std::string& path);

    bool AddVector(std::size_t index, std::uint32_t count);

    /// Those found, with the one at which the bytes ended.
    [[nodiscard]] const std::vector<Leaf>& List() const { return list_; }

  private:
    bool AddItem(const ModelItem& item, const std::string& path);

    const DefinitionModel& model_;
    std::size_t byteCount_;
    std::size_t position_ = 0;
    std::uint32_t element_ = 0;
    std::size_t elementPosition_ = 0;
    std::vector<Leaf> list_;
};

}  // namespace orvell::fuzz
