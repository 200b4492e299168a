#pragma once

#include <string_view>

#include "resources/string_table.h"
#include "values/base_types.h"

namespace orvell::paramlist {

/// What the handlers need from the string table: taken once per file instead of once per value.
struct ValueTexts {
    std::string_view undefined;            ///< "undef": an undefined value in a list file
    values::DateFormatCode csvDateFormat;  ///< order of day and month in CSV files
};

/// The texts of the table's current source; valid until it gets another one.
[[nodiscard]] ValueTexts LoadValueTexts(const resources::StringTable& strings);

}  // namespace orvell::paramlist
