#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "unit/memstruct/fake_xml_text.h"
#include "values/base_types.h"

namespace orvell::fuzz {

struct ModelItem {
    std::string name;
    std::string typeName;
    std::uint32_t dimension = 1;
    std::optional<std::size_t> type;  ///< index of the type of that name
};

struct ModelType {
    std::string name;
    values::BaseTypeCode baseType = values::BaseTypeCode::None;
    std::uint32_t declaredSize = 0;
    values::DateFormatCode dateFormat = values::DateFormatCode::None;
    std::vector<std::pair<std::uint32_t, std::string>> enumItems;  ///< ascending, first wins
    std::vector<ModelItem> items;

    bool isRecursive = false;
    bool holdsValues = false;
    std::uint32_t storedSize = 0;
    bool hasSigned = false;
    bool hasUnsigned = false;

    [[nodiscard]] bool IsStructured() const { return baseType == values::BaseTypeCode::Structured; }
};

struct ModelArea {
    std::uint32_t id;
    std::string typeName;
};

/// What the definitions of a document mean, by plain lists: everything is found by looking through
/// them from the start.
struct DefinitionModel {
    std::vector<ModelType> types;  ///< those that need no definition first
    std::vector<ModelArea> areas;  ///< ascending

    [[nodiscard]] std::optional<std::size_t> FindType(std::string_view name) const;
};

/// Reads the document's tree; it may have no root.
[[nodiscard]] DefinitionModel ModelOf(const test::FakeDocument& document);

/// The attribute's number: decimal digits of no more than 32 bits; none for anything else.
[[nodiscard]] std::optional<std::uint32_t> NumberOf(const test::FakeNode& node,
                                                    std::string_view attribute);

}  // namespace orvell::fuzz
