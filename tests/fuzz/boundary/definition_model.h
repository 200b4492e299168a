#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "fuzz/boundary/program.h"

namespace orvell::fuzz {

/// How the values of a base type are shown and built.
enum class LeafForm { Signed, Unsigned, Float, Double, Text, Enumerated, Date, Duration, Time };

/// A base type with a width.
struct ModelLeafType {
    LeafForm form;
    std::uint32_t width;
    const char* functions;  ///< what the names of the host's functions for it end in
    std::uint32_t rawKind;  ///< the kind that the host's raw put is told
};

/// A value of a base type inside a value.
struct ModelLeaf {
    const char* path;
    std::uint32_t offset;  ///< in bytes from the start of the value
    const ModelLeafType* type;
};

/// An element of a structure, and what slot 14 tells of it.
struct ModelElement {
    const char* name;
    const char* typeName;
    std::uint32_t dimension;
    std::uint32_t offset;
    std::int32_t area;  ///< one of the same type; 0: the type is unknown
};

/// An enumerator, in the order of the values.
struct ModelEnumerator {
    const char* name;
    std::uint32_t value;
};

/// What the definitions say about a memory area, told by hand.
struct ModelArea {
    std::int32_t identifier;
    std::uint32_t kind;  ///< 1 basic, 2 enumerated, 3 structured
    const char* typeName;
    std::uint32_t size;
    const char* baseTypeName;  ///< null for other kinds than 1
    std::uint32_t count;       ///< as slot 23 tells it
    bool hasValues;            ///< false for a recursive type
    std::span<const ModelLeaf> leaves;
    std::span<const ModelElement> elements;
    std::span<const ModelEnumerator> enumerators;
};

/// A definition file with these areas.
extern const char* const kDefinitions;

/// The areas of this file, but for the one that has an unknown type.
[[nodiscard]] std::span<const ModelArea> AllAreas();

// Areas of types that other files define, two of them under the same name.
extern const ModelArea kHugeLevel;
extern const ModelArea kLongLevel;
extern const ModelArea kTank;

/// The area of this file with this identifier; null for one that is not defined, or has an unknown
/// type.
[[nodiscard]] const ModelArea* FindArea(std::int32_t identifier);

[[nodiscard]] std::int32_t ChooseArea(Program& program);

/// The elements of a value: 1 for a single one.
[[nodiscard]] inline std::uint32_t Elements(std::uint32_t count) {
    return count < 2 ? 1 : count;
}

/// A leaf's path, which begins with the index in a vector, and its place in the value's bytes.
struct PlacedLeaf {
    std::string path;
    std::size_t offset;
    const ModelLeafType* type;
};

/// The leaves of so many elements.
[[nodiscard]] std::vector<PlacedLeaf> LeavesOf(const ModelArea& area, std::uint32_t count);

}  // namespace orvell::fuzz
