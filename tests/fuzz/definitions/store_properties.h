#pragma once

#include "fuzz/definitions/definition_model.h"
#include "memstruct/memory_structure_store.h"

namespace orvell::fuzz {

/// The store holds what the model does, type by type and area by area; ends the program where it
/// does not.
void CheckStore(const memstruct::MemoryStructureStore& store, const DefinitionModel& model);

}  // namespace orvell::fuzz
