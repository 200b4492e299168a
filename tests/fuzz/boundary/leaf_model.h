#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "fuzz/boundary/definition_model.h"
#include "fuzz/boundary/value_model.h"

namespace orvell::fuzz {

// The values of base types told in the plainest way, by the C library's printing and reading.

/// How the host wants values shown.
struct Showing {
    std::uint8_t format;  ///< 2 unsigned, 3 hexadecimal, else as the type is
    bool isBare;          ///< texts without quotation marks
};

/// The text of a value; none for a date, whose text the model does not know.
[[nodiscard]] std::optional<std::string> ShownText(const ModelLeafType& type,
                                                   const std::string& bytes, Showing showing);

/// As above, as name lists carry it.
[[nodiscard]] std::optional<std::string> ListedText(const ModelLeafType& type,
                                                    const std::string& bytes);

/// A time of day, and what it is in seconds: of other texts times and dates read none.
inline constexpr const char* kTimeText = "12:34:56";
inline constexpr std::uint32_t kTimeSeconds = 45296;

/// The bytes of the value that a name list's text gives; none when it is refused.
[[nodiscard]] std::optional<std::string> ImportedBytes(const ModelLeafType& type,
                                                       const std::string& text);

/// The bytes of the value that a parameter gives; zeros when it gives none.
[[nodiscard]] std::string BytesFromParameter(const ModelLeafType& type, ModelType parameterType,
                                             const ModelValue& parameter);

}  // namespace orvell::fuzz
