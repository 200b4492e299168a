#pragma once

#include "exhaustive/check.h"

namespace orvell::exhaustive {

/// FLOAT: the value's number is its bits. Neighbours with one text have it read back once.
void CheckFloats(const values::ValueConverterSet& converters, Range values,
                 Differences& differences);

}  // namespace orvell::exhaustive
