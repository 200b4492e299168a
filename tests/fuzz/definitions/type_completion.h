#pragma once

#include <vector>

#include "fuzz/definitions/definition_model.h"

namespace orvell::fuzz {

/// Derives what depends on the types of elements, whose indexes must be set. Types whose elements'
/// types are complete are completed until there is none left; those that remain wait for each other
/// or for such a ring, and are recursive.
void CompleteTypes(std::vector<ModelType>& types);

}  // namespace orvell::fuzz
