#pragma once

#include "fuzz/values/conversions.h"

namespace orvell::fuzz {

/// What holds for values on their way to the host and back; ends the program where it does not.
void CheckTransfer(const values::ValueConverterSet& converters, const ConverterCase& testCase);

}  // namespace orvell::fuzz
