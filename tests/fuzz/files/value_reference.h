#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "paramlist/value_type.h"

namespace orvell::fuzz {

/// What a text gives: the value's bytes, none for one that is refused.
struct ReadValue {
    bool isRefused = false;
    std::string bytes;

    bool operator==(const ReadValue&) const = default;
};

/// The value that digits with a sign, a point and an exponent spell in a list file, read by the C
/// library; none for other texts and types.
[[nodiscard]] std::optional<ReadValue> ValueOfListText(paramlist::ValueTypeCode type,
                                                       std::string_view text);

/// As `ValueOfListText`, in a CSV file; integers of digits alone.
[[nodiscard]] std::optional<ReadValue> ValueOfCsvText(paramlist::ValueTypeCode type,
                                                      std::string_view text);

}  // namespace orvell::fuzz
