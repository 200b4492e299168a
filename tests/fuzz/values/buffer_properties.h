#pragma once

#include "fuzz/values/converter_case.h"
#include "values/value_converter_set.h"

namespace orvell::fuzz {

// Each ends the program where it does not hold.

/// What holds for blocks that are shorter than a value.
void CheckShortBuffers(const values::ValueConverterSet& converters, const ConverterCase& testCase);

/// What holds for a type that has no converter.
void CheckWithoutConverter(const values::ValueConverterSet& converters,
                           const ConverterCase& testCase);

}  // namespace orvell::fuzz
