#pragma once

#include <string>
#include <string_view>

#include "paramlist/value_type.h"

namespace orvell::fuzz {

/// What a text gives: the value's bytes, none for an undefined one and for a text that is refused.
struct ReadValue {
    bool isRefused = false;
    std::string bytes;
};

// The values of texts as "Values as texts" in docs/parameter-list.md has them, numbers by the C
// library.

[[nodiscard]] ReadValue ValueOfListText(paramlist::ValueTypeCode type, std::string_view text);
[[nodiscard]] ReadValue ValueOfCsvText(paramlist::ValueTypeCode type, std::string_view text);

}  // namespace orvell::fuzz
