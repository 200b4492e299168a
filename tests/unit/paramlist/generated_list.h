#pragma once

#include <cstdint>

#include "paramlist/parameter_list.h"

namespace orvell::test {

/// Adds about `entryCount` entries to a list whose kinds have been built, spread over all of them,
/// with small gaps between the numbers. Equal arguments give equal lists.
///
/// Each entry comes back unchanged from a list file and from a CSV file: names, comments and values
/// hold quotation marks, separators and umlauts, but none of what the files cannot carry. One in
/// thirty values is undefined.
void FillList(paramlist::ParameterList& list, std::uint32_t entryCount, std::uint32_t seed = 1);

}  // namespace orvell::test
