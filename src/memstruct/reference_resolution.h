#pragma once

#include <deque>
#include <string_view>
#include <unordered_map>

#include "memstruct/type_model.h"
#include "values/value_converter_set.h"

namespace orvell::memstruct {

/// Types by their names; the names are those inside the types.
using TypeIndex = std::unordered_map<std::string_view, TypeDef*>;

/// Binds every element to its type, null when the index has no type of that name, and derives what
/// `TypeDef` says of the whole set: `recursive`, `storedSize`, `signedness`, `itemsWithValues`,
/// `wrapped`.
///
/// Takes time linear in the number of types and elements, whatever graph they form, and no stack
/// that grows with its depth.
void ResolveTypes(std::deque<TypeDef>& types, const TypeIndex& index,
                  const values::ValueConverterSet& converters);

}  // namespace orvell::memstruct
