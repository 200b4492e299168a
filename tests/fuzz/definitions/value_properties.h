#pragma once

#include <cstdint>
#include <span>

#include "fuzz/definitions/definition_model.h"
#include "memstruct/memory_structure_store.h"

namespace orvell::fuzz {

/// What holds for a value of the type at this index, and for a vector of `count` of them, whatever
/// bytes are given as such; ends the program where it does not.
void CheckValues(const memstruct::MemoryStructureStore& store, const DefinitionModel& model,
                 const values::ValueConverterSet& converters, std::size_t type, std::uint32_t count,
                 std::span<const std::uint8_t> bytes);

}  // namespace orvell::fuzz
