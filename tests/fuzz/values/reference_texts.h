#pragma once

#include <optional>
#include <string>

#include "fuzz/values/conversions.h"

namespace orvell::fuzz {

// What the converter of a case must make of values and texts, found by other means than the
// product's; none where these do not tell.

/// The text of a stored value, a STRING without quotation marks.
[[nodiscard]] std::optional<std::string> ReferencePrint(const ConverterCase& testCase,
                                                        const Bytes& value);
/// Its text in lists.
[[nodiscard]] std::optional<std::string> ReferenceExport(const ConverterCase& testCase,
                                                         const Bytes& value);

/// What a text is stored as in `width` bytes.
[[nodiscard]] std::optional<StoredText> ReferenceParse(const ConverterCase& testCase,
                                                       const std::string& text, std::size_t width);
/// What a text of a list is stored as.
[[nodiscard]] std::optional<StoredText> ReferenceImport(const ConverterCase& testCase,
                                                        const std::string& text, std::size_t width);

/// The text of a value that is not yet set; none for an OLE date, whose is the present time.
[[nodiscard]] std::optional<std::string> ReferenceDefault(const ConverterCase& testCase);

}  // namespace orvell::fuzz
