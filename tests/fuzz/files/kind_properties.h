#pragma once

#include "paramlist/parameter_list.h"

namespace orvell::fuzz {

/// What a list with its kinds built must have of the table of kinds, and no more: keywords in the
/// table's order, value types, and what files carry.
void RequireTableOfKinds(paramlist::ParameterList& list);

}  // namespace orvell::fuzz
