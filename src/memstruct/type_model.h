#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "values/base_types.h"

namespace orvell::memstruct {

struct TypeDef;

/// One element of a structured type.
struct StructItem {
    std::string name;               ///< not empty, as written in the file
    std::string typeName;           ///< not empty, as written in the file
    const TypeDef* type = nullptr;  ///< the type of that name, null when there is none
    std::uint32_t dimension = 1;    ///< consecutive values of the element's type, at least 1
    std::uint32_t offset = 0;       ///< derived: bytes from the structure's start, modulo 2^32
};

/// A named type: one of the base types with its attributes, an enumeration or a structure.
struct TypeDef {
    std::string name;  ///< not empty, without blanks at its ends
    values::BaseTypeCode baseType = values::BaseTypeCode::None;
    std::uint32_t size = 0;  ///< declared size; INT, UINT, STRING and Enumerated only
    values::DateFormatCode dateFormat = values::DateFormatCode::None;  ///< types with a date only
    values::EnumItemList enumItems;                                    ///< Enumerated only
    std::vector<StructItem> structItems;  ///< Structured only, in file order

    // Derived from the whole set of types once a file has been read (see reference_resolution.h).
    bool recursive = false;        ///< a cycle of structured types is reachable from here
    std::uint32_t storedSize = 0;  ///< bytes of one value, modulo 2^32; 0 when recursive
    std::int32_t signedness = -1;  ///< see MemoryStructureStore::SignednessClass
    /// The elements that hold values, in file order; none when recursive.
    std::vector<const StructItem*> itemsWithValues;
    /// For a structure that is nothing but one value of another type, however deep inside: that
    /// type; null for all others. Spares walks the levels between.
    const TypeDef* wrapped = nullptr;

    /// The part of the definition that the value converters read; refers into this object.
    [[nodiscard]] values::TypeDescription Description() const {
        return {baseType, size, dateFormat, &enumItems};
    }

    [[nodiscard]] bool IsStructured() const { return baseType == values::BaseTypeCode::Structured; }

    /// True when a value consists of at least one value of a base type.
    [[nodiscard]] bool HoldsValues() const { return !IsStructured() || !itemsWithValues.empty(); }
};

/// Binds a memory area of the target system to the type of its values.
struct MemoryArea {
    std::uint32_t id = 0;           ///< not 0
    std::string typeName;           ///< not empty, without blanks at its ends
    const TypeDef* type = nullptr;  ///< the type of that name, null when there is none
};

}  // namespace orvell::memstruct
