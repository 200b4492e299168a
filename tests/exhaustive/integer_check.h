#pragma once

#include "exhaustive/check.h"

namespace orvell::exhaustive {

/// INT and UINT of 1 and 2 bytes in all four formats, in lists, and normalised. Numbers below 256
/// are the bytes, the others less 256 the words.
inline constexpr std::uint64_t kSmallIntegerCount = 256 + 65536;

void CheckIntegers(const values::ValueConverterSet& converters, Range values,
                   Differences& differences);

}  // namespace orvell::exhaustive
