#pragma once

#include "fuzz/values/conversions.h"

namespace orvell::fuzz {

/// What holds between the texts and the values of a type; ends the program where it does not.
void CheckTexts(const Conversions& conversions, const ConverterCase& testCase);

}  // namespace orvell::fuzz
