#pragma once

#include <optional>
#include <string>

#include "fuzz/values/conversions.h"

namespace orvell::fuzz {

/// The text of a stored value (a STRING without quotation marks), made by other means than the
/// product's; none where these do not tell.
[[nodiscard]] std::optional<std::string> ReferencePrint(const ConverterCase& testCase,
                                                        const Bytes& value);

/// What the case's text is stored as in `width` bytes; none where the other means do not tell.
[[nodiscard]] std::optional<StoredText> ReferenceParse(const ConverterCase& testCase,
                                                       std::size_t width);

}  // namespace orvell::fuzz
