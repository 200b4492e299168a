#pragma once

#include <string_view>

#include "paramlist/parameter_list.h"

namespace orvell::benchmarks {

/// Measures update cycles that declare every entry of the list once: where it is, at its
/// neighbour's number, and at another entry's; in order and in random order. The numbers in use
/// stay the same. `name` goes into the printed lines.
void MeasureUpdateCycles(paramlist::ParameterList& list, std::string_view name);

}  // namespace orvell::benchmarks
